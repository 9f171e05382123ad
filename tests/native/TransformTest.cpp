#include <gtest/gtest.h>

#include <string>

#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/LibXmlDocument.h"
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
  const std::u16string sheets[] = {
      kDefaultStylesheet,
      Sheet(u"<xsl:value-of select='@v'/><xsl:text disable-output-escaping='yes'>&lt;</xsl:text>"),
      Sheet(u"<xsl:value-of select='$g'/>", u"<xsl:variable name='g' select='count(//e)'/>"),
      Sheet(u"<xsl:value-of select='$g'/>",
            u"<xsl:param name='g'><b><xsl:value-of select='//e[last()]/@n'/></b></xsl:param>"),
      Sheet(u"<xsl:value-of select=\"key('k', @n)/@v\"/>", u"<xsl:key name='k' match='e' use='@n'/>"),
      Sheet(u"<xsl:value-of select='generate-id()'/>;<xsl:value-of select='generate-id(..)'/>"),
      Sheet(u"<xsl:variable name='t'><a><xsl:value-of select='@v'/></a></xsl:variable><xsl:value-of select='$t'/>"),
      Sheet(u"<b a='{@v}'><xsl:value-of select='@n'/></b>"),
      Sheet(u"<xsl:if test='@n = 2'><!-- x --><xsl:comment>c</xsl:comment></xsl:if>t"),
      Sheet(u"<xsl:if test='@n != 2'>shown</xsl:if>"),
      Sheet(u"<xsl:for-each select='../e'><xsl:sort select='@n' order='descending'/><xsl:value-of "
            u"select='@n'/></xsl:for-each>"),
      Sheet(u"<xsl:number/>-<xsl:number level='any' count='e|r'/>"),
      Sheet(u"<xsl:apply-templates select='..' mode='m'/>", u"<xsl:template match='r' mode='m'>R</xsl:template>"),
      Sheet(u"<xsl:message>heard</xsl:message><xsl:value-of select='@n'/>"),
      Sheet(u"<xsl:copy-of select='.'/>"),
      u"<x xsl:version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'><xsl:value-of select='@n'/></x>",
  };
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
  struct Case {
    std::u16string_view Output;
    std::u16string_view Body;
    std::string_view Expected;
  };
  const Case cases[] = {
      {u"", u"é<b/>", "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\né<b/>"},
      {u"<xsl:output encoding='gb2312'/>", u"中", "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n中"},
      {u"<xsl:output omit-xml-declaration='yes' encoding='iso-8859-1'/>", u"<b a='中'>中</b>", "<b a=\"中\">中</b>"},
      {u"<xsl:output method='text' encoding='us-ascii' indent='no'/>", u"<b>&lt;中</b>", "<中"},
      {u"<xsl:output method='html'/>", u"<p>中<br/></p>", "<p>中<br></p>\n"},
      {u"<xsl:output omit-xml-declaration='yes'/>", u"<html><br/></html>", "<html><br></html>\n"},
      {u"<xsl:output omit-xml-declaration='yes' doctype-system='s.dtd'/>", u"<b/>",
       "<!DOCTYPE b SYSTEM \"s.dtd\"><b/>"},
      {u"<xsl:output method='text'/>", u"", ""},
  };
  for (const Case& c : cases) {
    const std::u16string sheet = u"<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>" +
                                 std::u16string(c.Output) + u"<xsl:template match='e'>" + std::u16string(c.Body) +
                                 u"</xsl:template></xsl:stylesheet>";
    EXPECT_EQ(Run(0, sheet), c.Expected) << ToUtf8(c.Output) << ToUtf8(c.Body);
  }
}

TEST_F(TransformTest, ErrorsCarryTheLibrarysWords) {
  struct Case {
    std::u16string Sheet;
    std::string_view Words;
  };
  const Case cases[] = {
      {u"<a>\n<b></a>", "mismatch"},
      {u"<a/>", "stylesheet"},
      {Sheet(u"<xsl:value-of select='@@'/>"), "compile"},
      {Sheet(u"<xsl:nonsense/>"), "nonsense"},
      {Sheet(u"\n\n<xsl:value-of/>"), "line 3"},
      {Sheet(u"<xsl:value-of select='nope()'/>"), "nope"},
      {Sheet(u"<xsl:value-of select='$nope'/>"), "nope"},
      {Sheet(u"<xsl:call-template name='nope'/>"), "nope"},
      {Sheet(u"<xsl:message terminate='yes'>stop here</xsl:message>"), "stop here"},
      {Sheet(u"<xsl:apply-templates select='.'/>"), "depth"},
      {Sheet(u"<xsl:call-template name='r'/>", u"<xsl:template name='r'>x<xsl:call-template name='r'/></xsl:template>"),
       "depth"},
  };
  testing::internal::CaptureStderr();
  for (const Case& c : cases) {
    for (int again = 0; again < 2; ++again) {
      const std::string words = RunError(c.Sheet);
      EXPECT_FALSE(words.starts_with("no error")) << ToUtf8(c.Sheet) << words;
      EXPECT_NE(words.find(c.Words), std::string::npos) << ToUtf8(c.Sheet) << "\n" << words;
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
