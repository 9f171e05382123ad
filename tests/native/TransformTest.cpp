#include <gtest/gtest.h>

#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/LibXmlTable.h"
#include "support/Rows.h"
#include "support/TempFolder.h"

namespace quorvane::native {
namespace {

/// A stylesheet without XML declaration in its output, with `top` at the top level and `body` in the template of `e`.
std::u16string Sheet(std::u16string_view body, std::u16string_view top = {}) {
  return u"<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
         u"<xsl:output omit-xml-declaration='yes'/>" +
         std::u16string(top) + u"<xsl:template match='e'>" + std::u16string(body) + u"</xsl:template></xsl:stylesheet>";
}

/// A table of elements `e` below `r` with the attributes n and v.
class TransformTest : public testing::Test {
 protected:
  using Values = std::vector<std::u16string>;

  static std::unique_ptr<LibXmlTable> Table(const std::vector<Values>& rows) {
    auto table = std::make_unique<LibXmlTable>(XmlTableShape{"r", "e", {{"n", false}, {"v", false}}});
    for (const Values& row : rows) Add(*table, row);
    return table;
  }
  static void Add(LibXmlTable& table, const Values& row) {
    table.BeginRow();
    for (const std::u16string& value : row) table.AddText(value);
  }
  void Add(const Values& row) {
    mcolRows.push_back(row);
    Add(*mobjTable, row);
  }

  std::string Run(std::size_t index, std::u16string_view stylesheet) {
    mobjSheet.LoadXml(stylesheet);
    return ToUtf8(mobjTable->Transform(index, mobjSheet));
  }
  std::string RunError(std::u16string_view stylesheet) {
    try {
      return "no error: " + Run(0, stylesheet);
    } catch (const Error& error) {
      return error.what();
    }
  }

  std::vector<Values> mcolRows = {{u"1", u"x"}, {u"2", u"<&>"}, {u"3", u"\r中"}};
  std::unique_ptr<LibXmlTable> mobjTable = Table(mcolRows);
  LibXmlDocument mobjSheet;
};

TEST_F(TransformTest, DefaultStylesheet) {
  LibXmlTable table({"SearchResult",
                     "MatchItem",
                     {{"ProjectName", false},
                      {"ComponentName", false},
                      {"ProcType", false},
                      {"ProcName", false},
                      {"Y1", true},
                      {"X1", true},
                      {"Line", false}}});
  ASSERT_TRUE(mobjSheet.LoadXml(GlobalSetting::DefaultXSL()));
  for (const std::u16string_view line : {u"    If a < b And c > d & \"x\" Then ' 中\t", u"", u"\x01"}) {
    table.BeginRow();
    for (const std::u16string_view name : {u"P<1>", u"Form1", u"Proc", u"Command1_Click"}) table.AddText(name);
    table.AddNumber(12);
    table.AddNumber(-5);
    table.AddText(line);
    EXPECT_EQ(ToUtf8(table.Transform(table.RowCount() - 1, mobjSheet)),
              ToUtf8(u"P&lt;1&gt;\\Form1\\Proc\\Command1_Click[12,-5]" + std::u16string(line)));
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
  Add({});
  EXPECT_EQ(Run(2, sheet), "3|2|1/1|r|4|");
  EXPECT_EQ(Run(3, sheet), "|3|1/1|r|4|");
}

/// Each stylesheet run over the elements forth and back gives what a document and a stylesheet of their own give.
TEST_F(TransformTest, RunsLeaveNoTrace) {
  std::vector<std::u16string> sheets = {GlobalSetting::DefaultXSL()};
  for (const test::Row& row : test::Rows("native/Transform.rows", "Traces")) {
    sheets.push_back(row.Text(2).empty() ? Sheet(row.Text(0), row.Text(1)) : row.Text(2));
  }
  for (int round = 0; round < 3; ++round) {
    for (const std::u16string& sheet : sheets) {
      for (const std::size_t index : {std::size_t{0}, std::size_t{1}, mcolRows.size() - 1, std::size_t{1}}) {
        LibXmlDocument fresh;
        ASSERT_TRUE(fresh.LoadXml(sheet));
        ASSERT_EQ(Run(index, sheet), ToUtf8(Table(mcolRows)->Transform(index, fresh))) << ToUtf8(sheet);
      }
    }
    Add({ToText(10 + round)});
  }
}

/// Text alone is written by a road of its own; an empty comment in front sends the same text over the library's.
TEST_F(TransformTest, PlainTextIsWrittenAsTheLibraryWritesIt) {
  std::u16string all;
  for (char16_t c = 1; c < 0x180; ++c) all += c;
  all += u"]]>\u2028中\xD83D\xDE00\uFFFE&amp;";
  Add({u"4", all});
  for (const std::u16string_view method : {u"xml", u"text"}) {
    const std::u16string top =
        u"<xsl:output method='" + std::u16string(method) + u"' encoding='us-ascii' indent='no'/>";
    const std::u16string body =
        u"<xsl:value-of select='@v'/><xsl:value-of disable-output-escaping='yes' select='@v'/>&lt;<xsl:value-of "
        u"select='@v'/>";
    const std::string plain = Run(3, Sheet(body, top));
    const std::string general = Run(3, Sheet(u"<xsl:comment>c</xsl:comment>" + body, top));
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

TEST_F(TransformTest, AStylesheetThatIsNoneRaises) {
  EXPECT_EQ(Run(0, Sheet(u"<xsl:value-of select='@n'/>")), "1");
  EXPECT_FALSE(mobjSheet.LoadXml(u"<broken"));
  EXPECT_THROW(mobjTable->Transform(0, mobjSheet), Error);
  EXPECT_THROW(mobjSheet.CompileStylesheet(), Error);
}

TEST_F(TransformTest, TheStylesheetMayEndBeforeTheTable) {
  for (const std::u16string_view more : {u"", u"<b/>", u"<xsl:value-of select='count(..)'/>"}) {
    auto sheet = std::make_unique<LibXmlDocument>();
    sheet->LoadXml(Sheet(u"<xsl:value-of select='@n'/>" + std::u16string(more)));
    EXPECT_TRUE(mobjTable->Transform(0, *sheet).starts_with(u"1"));
    sheet.reset();
    EXPECT_EQ(Run(0, Sheet(u"<xsl:value-of select='@v'/>")), "x");
    mobjTable->Clear();
    EXPECT_THROW(Run(0, Sheet(u"ok")), Error);
    for (const Values& row : mcolRows) Add(*mobjTable, row);
    EXPECT_EQ(Run(2, Sheet(u"<xsl:value-of select='count(../e)'/>")), "3");
  }
}

}  // namespace
}  // namespace quorvane::native
