#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/Stylesheet.h"
#include "support/Rows.h"

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

std::u16string ValueOf(std::u16string_view expression) {
  return u"<xsl:value-of select=\"" + std::u16string(expression) + u"\"/>";
}

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

std::string Outcome(const XmlElement& element, XmlDocument& sheet, const std::u16string& text) {
  sheet.LoadXml(text);
  try {
    return ToUtf8(element.TransformNode(sheet));
  } catch (const Error& error) {
    return std::string("error: ") + error.what();
  }
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

/// One of two documents that live through the same. The second is always transformed by way of its nodes.
struct Twin {
  LibXmlDocument Document;
  LibXmlDocument Stylesheet;
  std::vector<std::shared_ptr<XmlElement>> Held;
  std::u16string More;  ///< goes into every stylesheet
};

class Twins {
 public:
  explicit Twins(unsigned seed) : mvarRandom(seed) {
    mobjTwins[1].More = kFarReaching;
    Both([](Twin& twin) { twin.Document.LoadXml(u"<r xml:lang='en'><e a='1' b='2'/><f><e/></f></r>"); });
  }

  /// Differences go to the test's report.
  void Step() {
    Both([](Twin& twin) {  // it may have moved to below another element
      if (!twin.Document.DocumentElement()) twin.Document.SetDocumentElement(*twin.Document.CreateElement("r"));
    });
    const std::size_t a = Pick(mobjTwins[0].Held.size() + 1);
    const std::size_t b = Pick(mobjTwins[0].Held.size() + 1);
    switch (Pick(14)) {
      case 0:
        return Both([&](Twin& twin) { Attach(twin, twin.Document.CreateElement(mlngStep % 4 == 0 ? "f" : "e")); });
      case 1:
        if (Pick(6) == 0) Compare([](Twin& twin) { return twin.Document.Xml(); });
        return;
      case 2:
        return Compare([&](Twin& twin) { return Try([&] { Of(twin, a)->AppendChild(*Of(twin, b)); }); });
      case 3:
        if (Pick(2) == 0) Both([&](Twin& twin) { NewRoot(twin, *Of(twin, a)); });
        return;
      case 4:
        if (Pick(8) == 0) Both([](Twin& twin) { twin.Held.clear(); });
        return;
      case 5:
        return Compare([&](Twin& twin) {
          return ToUtf8(Of(twin, a)->GetAttribute("a")) + '|' + ToUtf8(Of(twin, a)->GetAttribute("long-name")) + '|' +
                 ToUtf8(Of(twin, a)->GetAttribute("missing"));
        });
      case 6:
      case 7:
      case 8:
        return SetAttributes(a);
      default:
        return Transform(a, Sheets()[Pick(Pick(6) != 0 ? kInside : Sheets().size())]);
    }
  }

  std::size_t Elements() const { return mobjTwins[0].Held.size(); }

 private:
  template <class Act>
  void Both(Act act) {
    ++mlngStep;
    for (Twin& twin : mobjTwins) act(twin);
  }
  template <class Ask>
  void Compare(Ask ask) {
    EXPECT_EQ(ask(mobjTwins[0]), ask(mobjTwins[1]));
  }
  template <class Act>
  static std::string Try(Act act) {
    try {
      act();
    } catch (const Error& error) {
      return error.what();
    }
    return {};
  }

  std::size_t Pick(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(mvarRandom); }

  /// The document element stands behind the held ones.
  static std::shared_ptr<XmlElement> Of(Twin& twin, std::size_t index) {
    return index < twin.Held.size() ? twin.Held[index] : twin.Document.DocumentElement();
  }

  void Attach(Twin& twin, std::shared_ptr<XmlElement> element) {
    if (mlngStep % 3 != 0) twin.Document.DocumentElement()->AppendChild(*element);
    twin.Held.push_back(std::move(element));
  }

  void NewRoot(Twin& twin, XmlElement& element) {
    if (mlngStep % 2 == 0) return twin.Document.SetDocumentElement(element);
    twin.Document.SetDocumentElement(*twin.Document.CreateElement("r"));
  }

  void SetAttributes(std::size_t index) {
    static const std::string_view names[] = {"a", "b", "c", "long-name", "d"};
    static const std::u16string_view values[] = {u"",    u"1",    u"7", u"a value of more than fifteen characters",
                                                 u"<&>", u"\r\n", u"中"};
    for (std::size_t count = Pick(6); count > 0; --count) {
      const std::string_view name = names[Pick(std::size(names))];
      std::u16string value(values[Pick(std::size(values))]);
      if (Pick(40) == 0) value.assign(20'000, u'x');
      Both([&](Twin& twin) { Of(twin, index)->SetAttribute(name, value); });
    }
  }

  void Transform(std::size_t index, const Sheet& sheet) {
    const auto outcome = [&](Twin& twin) { return Outcome(*Of(twin, index), twin.Stylesheet, sheet.Text(twin.More)); };
    EXPECT_EQ(outcome(mobjTwins[0]), outcome(mobjTwins[1])) << ToUtf8(sheet.Text());
  }

  std::mt19937 mvarRandom;
  Twin mobjTwins[2];
  std::size_t mlngStep = 0;
};

TEST(TransformRoadsTest, BothRoadsGiveTheSame) {
  const unsigned base = std::random_device{}();
  std::size_t most = 0;
  for (unsigned seed = base; seed < base + 40; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Twins twins(seed);
    for (int step = 0; step < 400 && !HasFailure(); ++step) {
      twins.Step();
      most = std::max(most, twins.Elements());
    }
    if (HasFailure()) return;
  }
  EXPECT_GT(most, 10U);
}

/// Elements made at different times, moved between trees that have been looked at and trees that have not.
TEST(TransformRoadsTest, AttributesAreSeenFromEverywhere) {
  LibXmlDocument document;
  LibXmlDocument stylesheet;
  const std::u16string all = Sheet{false, u"<xsl:for-each select='//@*'>" + ValueOf(u".") + u"</xsl:for-each>"}.Text();
  const auto element = [&](std::u16string_view value) {
    const auto made = document.CreateElement("e");
    made->SetAttribute("a", value);
    return made;
  };
  const auto root = element(u"1");
  const auto inner = element(u"2");
  document.SetDocumentElement(*root);
  EXPECT_EQ(Outcome(*inner, stylesheet, all), "1");  // from outside of the document
  const auto fresh = element(u"3");
  document.SetDocumentElement(*fresh);
  fresh->AppendChild(*inner);
  inner->AppendChild(*element(u"4"));
  document.SetDocumentElement(*inner);  // it was looked at, its child was not
  EXPECT_EQ(document.Xml(), "<e a=\"2\">\n  <e a=\"4\"/>\n</e>\n");
  inner->AppendChild(*element(u"5"));
  EXPECT_EQ(Outcome(*inner, stylesheet, all), "245");
  EXPECT_EQ(root->GetAttribute("a") + fresh->GetAttribute("a"), u"13");
}

/// An element as a child of one that declares a namespace, which a copy of it declares too.
TEST(TransformRoadsTest, NamespacesFromFurtherUpAreCopied) {
  LibXmlDocument document;
  LibXmlDocument stylesheet;
  ASSERT_TRUE(document.LoadXml(u"<r xmlns:p='urn:p'/>"));
  const auto element = document.CreateElement("e");
  const Sheet sheet{true, u"<xsl:copy-of select='.'/>"};
  EXPECT_EQ(Outcome(*element, stylesheet, sheet.Text()), "<e/>");
  document.DocumentElement()->AppendChild(*element);
  EXPECT_EQ(Outcome(*element, stylesheet, sheet.Text()), "<e xmlns:p=\"urn:p\"/>");
}

}  // namespace
}  // namespace quorvane::native
