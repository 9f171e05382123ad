#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/LibXmlDocument.h"
#include "support/Rows.h"
#include "support/TempFolder.h"

namespace quorvane::native {
namespace {

const std::u16string kDefaultStylesheet =
    u"<?xml version='1.0' encoding='gb2312'?>\r\n"
    u"<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>\r\n"
    u"    <xsl:output omit-xml-declaration='yes' />\r\n"
    u"    <xsl:template match='MatchItem'>\r\n"
    u"        <xsl:value-of select='@ProjectName' />\r\n"
    u"        <xsl:text>\\</xsl:text>\r\n"
    u"        <xsl:value-of select='@ComponentName' />\r\n"
    u"        <xsl:text>\\</xsl:text>\r\n"
    u"        <xsl:value-of select='@ProcType' />\r\n"
    u"        <xsl:text>\\</xsl:text>\r\n"
    u"        <xsl:value-of select='@ProcName' />\r\n"
    u"        <xsl:text>[</xsl:text>\r\n"
    u"        <xsl:value-of select='@Y1' />\r\n"
    u"        <xsl:text>,</xsl:text>\r\n"
    u"        <xsl:value-of select='@X1' />\r\n"
    u"        <xsl:text>]</xsl:text>\r\n"
    u"        <xsl:value-of disable-output-escaping='yes' select='@Line' />\r\n"
    u"    </xsl:template>\r\n"
    u"</xsl:stylesheet>\r\n";

/// A stylesheet without XML declaration in its output, with `top` at the top level and `body` in the template of `e`.
std::u16string Sheet(std::u16string_view body, std::u16string_view top = {}) {
  return u"<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
         u"<xsl:output omit-xml-declaration='yes'/>" +
         std::u16string(top) + u"<xsl:template match='e'>" + std::u16string(body) + u"</xsl:template></xsl:stylesheet>";
}

class TransformTest : public testing::Test {
 protected:
  TransformTest() {
    mobjDocument.LoadXml(u"<r><e n='1' v='x'/><e n='2' v='&lt;&amp;&gt;'/><e n='3' v='&#13;中'/></r>");
  }

  std::string Run(std::size_t index, std::u16string_view stylesheet) {
    mobjSheet.LoadXml(stylesheet);
    return ToUtf8(mobjDocument.DocumentElement()->Child(index)->TransformNode(mobjSheet));
  }
  std::string RunError(std::u16string_view stylesheet) {
    try {
      return "no error: " + Run(0, stylesheet);
    } catch (const Error& error) {
      return error.what();
    }
  }

  LibXmlDocument mobjDocument;
  LibXmlDocument mobjSheet;
};

TEST_F(TransformTest, DefaultStylesheet) {
  LibXmlDocument document;
  document.SetDocumentElement(*document.CreateElement("SearchResult"));
  ASSERT_TRUE(mobjSheet.LoadXml(kDefaultStylesheet));
  for (const std::u16string_view line : {u"    If a < b And c > d & \"x\" Then ' 中\t", u"", u"\x01"}) {
    const auto item = document.CreateElement("MatchItem");
    const std::pair<const char*, std::u16string_view> values[] = {{"ProjectName", u"P<1>"},
                                                                  {"ComponentName", u"Form1"},
                                                                  {"ProcType", u"Proc"},
                                                                  {"ProcName", u"Command1_Click"},
                                                                  {"Y1", u"12"},
                                                                  {"X1", u"5"},
                                                                  {"Line", line}};
    for (const auto& [name, value] : values) item->SetAttribute(name, value);
    document.DocumentElement()->AppendChild(*item);
    ASSERT_TRUE(mobjSheet.LoadXml(kDefaultStylesheet));
    EXPECT_EQ(ToUtf8(item->TransformNode(mobjSheet)),
              ToUtf8(u"P&lt;1&gt;\\Form1\\Proc\\Command1_Click[12,5]" + std::u16string(line)));
  }
}

TEST_F(TransformTest, TheElementStandsInItsDocument) {
  const std::u16string sheet = Sheet(
      u"<xsl:value-of select='@n'/>|<xsl:value-of select='count(preceding-sibling::*)'/>|<xsl:value-of "
      u"select='position()'/>"
      u"/<xsl:value-of select='last()'/>|<xsl:value-of select='name(..)'/>|<xsl:value-of select='count(/r/e)'/>"
      u"|<xsl:value-of select='following-sibling::e/@n'/>");
  EXPECT_EQ(Run(0, sheet), "1|0|1/1|r|3|2");
  EXPECT_EQ(Run(1, sheet), "2|1|1/1|r|3|3");
  mobjDocument.DocumentElement()->AppendChild(*mobjDocument.CreateElement("e"));
  EXPECT_EQ(Run(2, sheet), "3|2|1/1|r|4|");
  EXPECT_EQ(Run(3, sheet), "|3|1/1|r|4|");
}

/// Each stylesheet run over the elements forth and back gives what a document and a stylesheet of their own give.
TEST_F(TransformTest, RunsLeaveNoTrace) {
  std::vector<std::u16string> sheets = {kDefaultStylesheet};
  for (const test::Row& row : test::Rows("native/Transform.rows", "Traces")) {
    sheets.push_back(row.Text(2).empty() ? Sheet(row.Text(0), row.Text(1)) : row.Text(2));
  }
  const auto last = [this] { return mobjDocument.DocumentElement()->ChildCount() - 1; };
  for (int round = 0; round < 3; ++round) {
    for (const std::u16string& sheet : sheets) {
      for (const std::size_t index : {std::size_t{0}, std::size_t{1}, last(), std::size_t{1}}) {
        LibXmlDocument document;
        LibXmlDocument fresh;
        ASSERT_TRUE(document.LoadXml(FromUtf8(mobjDocument.Xml())));
        ASSERT_TRUE(fresh.LoadXml(sheet));
        const std::u16string expected = document.DocumentElement()->Child(index)->TransformNode(fresh);
        ASSERT_EQ(Run(index, sheet), ToUtf8(expected)) << ToUtf8(sheet);
      }
    }
    const auto added = mobjDocument.CreateElement("e");
    added->SetAttribute("n", ToText(10 + round));
    mobjDocument.DocumentElement()->AppendChild(*added);
  }
}

/// Text alone is written by a road of its own; an empty comment in front sends the same text over the library's.
TEST_F(TransformTest, PlainTextIsWrittenAsTheLibraryWritesIt) {
  const auto element = mobjDocument.DocumentElement()->Child(0);
  std::u16string all;
  for (char16_t c = 1; c < 0x180; ++c) all += c;
  all += u"]]>\u2028中\xD83D\xDE00\uFFFE&amp;";
  element->SetAttribute("v", all);
  for (const std::u16string_view method : {u"xml", u"text"}) {
    const std::u16string top =
        u"<xsl:output method='" + std::u16string(method) + u"' encoding='us-ascii' indent='no'/>";
    const std::u16string body =
        u"<xsl:value-of select='@v'/><xsl:value-of disable-output-escaping='yes' select='@v'/>&lt;<xsl:value-of "
        u"select='@v'/>";
    const std::string plain = Run(0, Sheet(body, top));
    const std::string general = Run(0, Sheet(u"<xsl:comment>c</xsl:comment>" + body, top));
    EXPECT_TRUE((method == u"xml" ? "<!--c-->" : "") + plain == general) << ToUtf8(method);
    EXPECT_GT(plain.size(), 3 * all.size());
  }
}

TEST_F(TransformTest, OutputMethods) {
  for (const test::Row& row : test::Rows("native/Transform.rows", "OutputMethods")) {
    const std::u16string sheet = u"<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>" +
                                 row.Text(0) + u"<xsl:template match='e'>" + row.Text(1) +
                                 u"</xsl:template></xsl:stylesheet>";
    EXPECT_EQ(Run(0, sheet), row.Bytes(2)) << row.Where();
  }
}

TEST_F(TransformTest, ErrorsCarryTheLibrarysWords) {
  testing::internal::CaptureStderr();
  for (const test::Row& row : test::Rows("native/Transform.rows", "Errors")) {
    const std::u16string sheet = row.Bytes(3) == "whole" ? row.Text(0) : Sheet(row.Text(0), row.Text(1));
    for (int again = 0; again < 2; ++again) {
      const std::string words = RunError(sheet);
      EXPECT_FALSE(words.starts_with("no error")) << row.Where() << words;
      EXPECT_NE(words.find(row.Bytes(2)), std::string::npos) << row.Where() << "\n" << words;
      EXPECT_EQ(words.find('\n'), std::string::npos) << words;
    }
    EXPECT_EQ(Run(0, Sheet(u"ok")), "ok");
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(TransformTest, NothingIsReadOrWrittenOutside) {
  const test::TempFolder folder;
  const std::u16string secret = FromUtf8(folder.Write("secret.xml", "<treasure>gold</treasure>"));
  const std::u16string sheet = FromUtf8(folder.Write("sheet.xsl", ToUtf8(Sheet(u"gold"))));
  const std::u16string written = FromUtf8(folder / "written.txt");
  for (const std::u16string& text :
       {Sheet(u"<xsl:value-of select=\"document('" + secret + u"')\"/>"),
        Sheet(u"", u"<xsl:include href='" + sheet + u"'/>"), Sheet(u"", u"<xsl:import href='" + sheet + u"'/>"),
        Sheet(u"<x:document xmlns:x='http://www.w3.org/1999/XSL/Transform' href='" + written + u"'>x</x:document>"),
        Sheet(u"<x:write xmlns:x='http://icl.com/saxon' file='" + written + u"'>x</x:write>")}) {
    EXPECT_EQ(RunError(text).find("gold"), std::string::npos) << ToUtf8(text);
  }
  EXPECT_FALSE(std::filesystem::exists(ToUtf8(written)));
}

TEST_F(TransformTest, AChangedStylesheetIsCompiledAnew) {
  EXPECT_EQ(Run(0, Sheet(u"<xsl:value-of select='@n'/>")), "1");
  mobjSheet.DocumentElement()->Child(1)->Child(0)->SetAttribute("select", u"@v");
  const auto element = mobjDocument.DocumentElement()->Child(0);
  EXPECT_EQ(element->TransformNode(mobjSheet), u"x");
  EXPECT_EQ(Run(0, Sheet(u"<xsl:value-of select='@n'/>")), "1");
  EXPECT_FALSE(mobjSheet.LoadXml(u"<broken"));
  EXPECT_THROW(element->TransformNode(mobjSheet), Error);
  EXPECT_THROW(mobjSheet.CompileStylesheet(), Error);
}

TEST_F(TransformTest, TheStylesheetMayEndBeforeTheDocument) {
  auto sheet = std::make_unique<LibXmlDocument>();
  sheet->LoadXml(Sheet(u"<xsl:value-of select='@n'/>"));
  const auto element = mobjDocument.DocumentElement()->Child(0);
  EXPECT_EQ(element->TransformNode(*sheet), u"1");
  sheet.reset();
  EXPECT_EQ(Run(0, Sheet(u"<xsl:value-of select='@v'/>")), "x");
  mobjDocument.SetDocumentElement(*mobjDocument.CreateElement("e"));
  EXPECT_EQ(element->TransformNode(mobjSheet), u"x");
  EXPECT_EQ(mobjDocument.DocumentElement()->TransformNode(mobjSheet), u"");
}

}  // namespace
}  // namespace quorvane::native
