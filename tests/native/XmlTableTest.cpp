#include <gtest/gtest.h>

#include "base/Text.h"
#include "native/xml/LibXmlTable.h"
#include "support/Raised.h"
#include "support/TempFolder.h"

namespace quorvane::native {
namespace {

using test::Raised;

constexpr int kOutOfRange = 9;

LibXmlTable Table() {
  return LibXmlTable(XmlTableShape{"r", "e", {{"n", true}, {"v", false}, {"w", false}}});
}

void Add(LibXmlTable& table, std::int32_t n, std::u16string_view v, std::u16string_view w) {
  table.BeginRow();
  table.AddNumber(n);
  table.AddText(v);
  table.AddText(w);
}

TEST(XmlTableTest, ValuesComeBackAsStored) {
  const std::u16string all = [] {
    std::u16string text;
    for (char16_t c = 1; c < 0x180; ++c) text += c;
    return text + u"&amp;&lt;]]>中\xD83D\xDE00\uFFFE";
  }();
  LibXmlTable table = Table();
  Add(table, -2147483647 - 1, all, u"");
  Add(table, 2147483647, all, all);  // as above, and not
  Add(table, 0, std::u16string_view(u"a\0b\xD83D!\xDE00", 6), u"x");
  EXPECT_EQ(table.Number(0, 0), -2147483647 - 1);
  EXPECT_EQ(table.Number(1, 0), 2147483647);
  EXPECT_EQ(table.Text(0, 1), all);
  EXPECT_EQ(table.Text(0, 2), u"");
  EXPECT_EQ(table.Text(1, 1), all);
  EXPECT_EQ(table.Text(1, 2), all);
  EXPECT_EQ(ToUtf8(table.Text(2, 1)), "a\uFFFDb\uFFFD!\uFFFD");
}

TEST(XmlTableTest, ARowMayLackColumns) {
  LibXmlTable table = Table();
  table.BeginRow();
  Add(table, 1, u"", u"w");  // the row above has no values to share
  table.BeginRow();
  table.AddNumber(2);
  table.BeginRow();
  EXPECT_EQ(table.Text(1, 1), u"");
  EXPECT_EQ(table.Text(2, 2), u"");
  EXPECT_EQ(table.Number(3, 0), 0);
  EXPECT_EQ(table.Xml(), "<r>\n  <e/>\n  <e n=\"1\" v=\"\" w=\"w\"/>\n  <e n=\"2\"/>\n  <e/>\n</r>\n");
  table.Clear();
  EXPECT_EQ(table.RowCount(), 0U);
  EXPECT_EQ(table.Xml(), "<r/>\n");
  Add(table, 3, u"a", u"b");
  EXPECT_EQ(table.Xml(), "<r>\n  <e n=\"3\" v=\"a\" w=\"b\"/>\n</r>\n");
}

TEST(XmlTableTest, WhatDoesNotExistIsOutOfRange) {
  LibXmlTable table = Table();
  EXPECT_EQ(Raised([&] { table.AddNumber(1); }), kOutOfRange);
  EXPECT_EQ(Raised([&] { table.AddText(u""); }), kOutOfRange);
  Add(table, 1, u"", u"");
  EXPECT_EQ(Raised([&] { table.AddText(u""); }), kOutOfRange) << "all columns are there";
  EXPECT_EQ(Raised([&] { table.Number(1, 0); }), kOutOfRange);
  EXPECT_EQ(Raised([&] { table.Number(0, 1); }), kOutOfRange) << "a text";
  EXPECT_EQ(Raised([&] { table.Text(0, 0); }), kOutOfRange) << "a number";
  EXPECT_EQ(Raised([&] { table.Text(0, 3); }), kOutOfRange);
}

TEST(XmlTableTest, WhatXmlCannotHoldIsReplacedAsItIsSaved) {
  LibXmlTable table = Table();
  Add(table, 1, u"\t\"<a> & 'b'\r\nc\u00a0中\uFF0D\xD83D\xDE00 \x7F", u"\x01|\x1F|\uFFFE|\uFFFF|\uFFFD");
  const std::string xml =
      "<r>\n  <e n=\"1\" v=\"&#9;&quot;&lt;a&gt; &amp; 'b'&#13;&#10;c\u00a0中\uFF0D\U0001F600 \x7F\" "
      "w=\"\uFFFD|\uFFFD|\uFFFD|\uFFFD|\uFFFD\"/>\n</r>\n";
  EXPECT_EQ(table.Xml(), xml);
  const test::TempFolder folder;
  table.Save(FromUtf8(folder / "result.xml"));
  EXPECT_EQ(folder.Read("result.xml"), xml);
}

}  // namespace
}  // namespace quorvane::native
