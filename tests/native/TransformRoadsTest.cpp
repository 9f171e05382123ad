#include <gtest/gtest.h>
#include <libxml/tree.h>

#include <map>
#include <memory>

#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/LibXmlTable.h"
#include "native/xml/Stylesheet.h"
#include "native/xml/TransformRun.h"
#include "native/xml/XmlErrorCapture.h"
#include "support/Rows.h"
#include "support/Seed.h"

namespace quorvane::native {
namespace {

/// A stylesheet that nobody takes for one that stays inside of an element.
constexpr std::u16string_view kFarReaching = u"<xsl:variable name='unused' select='1'/>";

constexpr std::size_t kInside = 17;  ///< number of the stylesheets, the first ones, that stay inside

struct Sheet {
  bool StaysInside;
  std::u16string Body;  ///< of the template of `e`
  std::u16string Top = {};

  std::u16string Text(std::u16string_view more = {}) const {
    return u"<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
           u"<xsl:output omit-xml-declaration='yes'/>" +
           std::u16string(more) + Top + u"<xsl:template match='e'>" + Body + u"</xsl:template></xsl:stylesheet>";
  }
};

const std::vector<Sheet>& Sheets() {
  static const std::vector<Sheet> sheets = [] {
    std::vector<Sheet> all;
    for (const test::Row& row : test::Rows("native/Transform.rows", "Sheets")) {
      all.push_back({row.Number(0) == 1, row.Text(1), row.Text(2)});
    }
    return all;
  }();
  return sheets;
}

bool StaysInside(const std::u16string& sheet) {
  return Stylesheet(ToUtf8(sheet)).StaysInside();
}

TEST(TransformRoadsTest, StylesheetsThatStayInsideAreTold) {
  EXPECT_TRUE(Sheets()[kInside - 1].StaysInside && !Sheets()[kInside].StaysInside);
  for (const Sheet& sheet : Sheets()) {
    EXPECT_EQ(StaysInside(sheet.Text()), sheet.StaysInside) << ToUtf8(sheet.Text());
    EXPECT_FALSE(StaysInside(sheet.Text(kFarReaching)));
  }
}

TEST(TransformRoadsTest, WhatCouldHideAWayOutDoesNotPass) {
  for (const test::Row& row : test::Rows("native/Transform.rows", "Bodies")) {
    EXPECT_FALSE(StaysInside(Sheet{false, row.Text(0)}.Text())) << row.Where();
  }
  for (const test::Row& row : test::Rows("native/Transform.rows", "Tops")) {
    EXPECT_FALSE(StaysInside(Sheet{false, u"", row.Text(0)}.Text())) << row.Where();
  }
  // A document type could give attributes to elements that do not show them.
  const std::u16string text = Sheet{true, u"<b/>"}.Text();
  EXPECT_TRUE(StaysInside(text));
  EXPECT_FALSE(StaysInside(u"<!DOCTYPE b [<!ATTLIST b c CDATA '{..}'>]>" + text));
}

template <class Ask>
std::string Outcome(Ask ask) {
  try {
    return ToUtf8(ask());
  } catch (const Error& error) {
    return std::string("error: ") + error.what();
  }
}

/// What the library makes of row `index` of the document that `xml` holds.
std::u16string ByTheLibrary(const std::string& xml, std::size_t index, const std::u16string& sheet) {
  LibXmlDocument stylesheet;
  stylesheet.LoadXml(sheet);
  const XmlErrorCapture capture;
  const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document(ParseXml(xml, "document"), xmlFreeDoc);
  xmlNode* row = xmlFirstElementChild(xmlDocGetRootElement(document.get()));
  for (; index > 0; --index) row = xmlNextElementSibling(row);
  return TransformRun(stylesheet.Compiled(), document.get()).Transform(row);
}

/// A table that is filled, transformed and emptied at random; each outcome is what the library alone gives.
class RandomTable {
 public:
  explicit RandomTable(unsigned seed) : random_(seed) {}

  void Step() {
    const std::size_t rows = table_.RowCount();
    if (rows == 0 || Pick(3) == 0) return AddRow();
    if (Pick(200) == 0) return table_.Clear();
    const std::size_t index = Pick(2) == 0 ? rows - 1 : Pick(rows);
    const bool straight = Pick(2) == 0;
    const std::u16string sheet = straight ? StraightSheetText() : Sheets()[Pick(Sheets().size())].Text();
    sheet_.LoadXml(sheet);
    const std::string plain = Outcome([&] { return ByTheLibrary(table_.Xml(), index, sheet); });
    EXPECT_EQ(Outcome([&] { return table_.Transform(index, sheet_); }), plain) << ToUtf8(sheet);
    ++transformed_;
    if (straight && !plain.starts_with("error") && sheet_.Compiled()->Straight() != nullptr) ++straight_;
  }

  std::size_t Transformed() const { return transformed_; }
  std::size_t Straight() const { return straight_; }

 private:
  std::size_t Pick(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_); }
  template <std::size_t N>
  std::u16string_view Pick(const std::u16string_view (&list)[N]) {
    return list[Pick(N)];
  }

  void AddRow() {
    static constexpr std::u16string_view values[] = {
        u"", u"1", u"7", u"a value of more than fifteen characters", u"<&>\"", u"\r\n", u"中\xD83D\xDE00"};
    table_.BeginRow();
    const std::size_t width = Pick(6) == 0 ? Pick(5) : 5;
    if (width > 0) table_.AddNumber(static_cast<std::int32_t>(Pick(9)) - 4);
    for (std::size_t i = 1; i < width; ++i)
      table_.AddText(Pick(60) == 0 ? std::u16string(20'000, u'x') : std::u16string(Pick(values)));
  }

  /// One that strings texts and values together, or nearly.
  std::u16string StraightSheetText() {
    const auto some = [this](const char* table, std::size_t count = SIZE_MAX) {
      static std::map<std::string, std::vector<std::u16string>> tables;
      std::vector<std::u16string>& texts = tables[table];
      if (texts.empty()) {
        for (const test::Row& row : test::Rows("native/Transform.rows", table)) texts.push_back(row.Text(0));
      }
      return texts[Pick(std::min(count, texts.size()))];
    };
    std::u16string text = u"<xsl:stylesheet xmlns:xsl='http://www.w3.org/1999/XSL/Transform' ";
    text += some("Roots", Pick(9) == 0 ? 3 : 1) + u"> " + some("Outputs", Pick(3) == 0 ? 6 : 3);
    text += u"<xsl:template " + some("Templates", Pick(8) == 0 ? 5 : 1) + u">";
    for (std::size_t count = Pick(9); count > 0; --count) text += some(Pick(30) == 0 ? "OddPieces" : "Pieces");
    return text.append(u"</xsl:template></xsl:stylesheet>");
  }

  std::mt19937 random_;
  LibXmlTable table_{
      XmlTableShape{"r", "e", {{"a", true}, {"b", false}, {"c", false}, {"long-name", false}, {"d", false}}}};
  LibXmlDocument sheet_;
  std::size_t transformed_ = 0;
  std::size_t straight_ = 0;
};

TEST(TransformRoadsTest, AllRoadsGiveWhatTheLibraryGives) {
  const char* wanted = std::getenv("QUORVANE_CASES");
  const std::size_t cases = wanted != nullptr ? std::strtoul(wanted, nullptr, 10) : 4000;
  testing::internal::CaptureStderr();
  std::size_t done = 0;
  std::size_t straight = 0;
  for (unsigned seed = test::NewSeed(); done < cases && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomTable table(seed);
    for (int step = 0; step < 400 && !HasFailure(); ++step) table.Step();
    done += table.Transformed();
    straight += table.Straight();
  }
  testing::internal::GetCapturedStderr();
  EXPECT_GT(straight, done / 8);
  EXPECT_LT(straight, done / 2);
}

}  // namespace
}  // namespace quorvane::native
