#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/LibXmlDocument.h"
#include "support/Raised.h"
#include "support/TempFolder.h"

namespace quorvane::native {
namespace {

using test::Raised;

std::string ValueOf(std::u16string_view stored) {
  LibXmlDocument document;
  const auto element = document.CreateElement("e");
  element->SetAttribute("a", stored);
  return ToUtf8(element->GetAttribute("a"));
}

TEST(XmlDocumentTest, ValuesComeBackAsStored) {
  const std::u16string all = [] {
    std::u16string text;
    for (char16_t c = 1; c < 0x180; ++c) text += c;
    return text + u"&amp;&lt;]]>中\xD83D\xDE00\uFFFE";
  }();
  EXPECT_EQ(ValueOf(all), ToUtf8(all));
  EXPECT_EQ(ValueOf(u""), "");
  EXPECT_EQ(ValueOf(std::u16string_view(u"a\0b\xD83D!\xDE00", 6)), "a\uFFFDb\uFFFD!\uFFFD");
  for (std::size_t length = 0; length < 40; ++length) {  // short values are kept in another place than long ones
    const std::u16string text(length, u'x');
    EXPECT_EQ(ValueOf(text), ToUtf8(text));
  }
}

TEST(XmlDocumentTest, AttributesKeepTheirOrderWhenRewritten) {
  LibXmlDocument document;
  const auto root = document.CreateElement("r");
  document.SetDocumentElement(*root);
  root->SetAttribute("b", u"1");
  root->SetAttribute("a", u"a value of more than fifteen characters");
  root->SetAttribute("b", u"another value of more than fifteen characters");
  root->SetAttribute("a", u"2");
  EXPECT_EQ(document.Xml(), "<r b=\"another value of more than fifteen characters\" a=\"2\"/>\n");
  EXPECT_EQ(root->GetAttribute("c"), u"");
}

TEST(XmlDocumentTest, NamesAreChecked) {
  LibXmlDocument document;
  const auto root = document.CreateElement("r");
  for (const std::string_view name : {std::string_view(""), std::string_view("a b"), std::string_view("1a"),
                                      std::string_view("a:b"), std::string_view("a\0b", 3)}) {
    EXPECT_NE(Raised([&] { document.CreateElement(name); }), 0) << name;
    EXPECT_NE(Raised([&] { root->SetAttribute(name, u""); }), 0) << name;
  }
}

TEST(XmlDocumentTest, ElementsOutliveTheirPlace) {
  std::shared_ptr<XmlElement> child;
  {
    LibXmlDocument document;
    EXPECT_EQ(document.DocumentElement(), nullptr);
    auto root = document.CreateElement("r");
    document.SetDocumentElement(*root);
    for (char16_t name : {u'a', u'b', u'c'}) {
      const auto element = document.CreateElement("e");
      element->SetAttribute("n", {&name, 1});
      root->AppendChild(*element);
    }
    child = root->Child(1);
    root.reset();
    for (int round = 0; round < 3; ++round) document.SetDocumentElement(*document.CreateElement("other"));
    EXPECT_EQ(document.Xml(), "<other/>\n");
    EXPECT_EQ(child->GetAttribute("n"), u"b");
    document.DocumentElement()->AppendChild(*child);
    EXPECT_EQ(document.Xml(), "<other>\n  <e n=\"b\"/>\n</other>\n");
  }
  EXPECT_EQ(child->GetAttribute("n"), u"b");
}

TEST(XmlDocumentTest, ElementsMove) {
  LibXmlDocument document;
  ASSERT_TRUE(document.LoadXml(u"<r><a><b/>text<c/></a><!-- no element --><d/></r>"));
  const auto root = document.DocumentElement();
  EXPECT_EQ(root->ChildCount(), 2U);
  const auto a = root->Child(0);
  EXPECT_EQ(a->ChildCount(), 2U);
  const auto c = a->Child(1);
  root->AppendChild(*c);
  EXPECT_EQ(a->ChildCount(), 1U);
  EXPECT_EQ(root->ChildCount(), 3U);
  EXPECT_EQ(root->Child(2)->ChildCount(), 0U);
  EXPECT_NE(Raised([&] { a->AppendChild(*root); }), 0);
  EXPECT_NE(Raised([&] { a->AppendChild(*a); }), 0);
  EXPECT_THROW(root->Child(3), Error);
  LibXmlDocument other;
  EXPECT_TRUE(Raised([&] { other.SetDocumentElement(*a); }).Says("another document"));
  document.SetDocumentElement(*a);
  EXPECT_EQ(root->ChildCount(), 2U);  // it lives on in its handle
  EXPECT_EQ(document.DocumentElement()->Child(0)->ChildCount(), 0U);
}

/// Trees built, moved, let go and replaced at random; a memory checker or a crash is what would tell.
TEST(XmlDocumentTest, RandomHandlesAndMoves) {
  const unsigned seed = std::random_device{}();
  std::mt19937 random(seed);
  LibXmlDocument document;
  std::vector<std::shared_ptr<XmlElement>> held;
  document.SetDocumentElement(*document.CreateElement("r"));
  const auto pick = [&](std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random); };
  std::size_t moves = 0;
  for (int step = 0; step < 20'000; ++step) {
    if (held.size() < 5) held.push_back(document.CreateElement("e"));
    const std::shared_ptr<XmlElement> element = held[pick(held.size())];
    switch (pick(6)) {
      case 0:
      case 1:
        if (Raised([&] { element->AppendChild(*held[pick(held.size())]); }) == 0) ++moves;
        break;
      case 2:
        if (element->ChildCount() > 0) held.push_back(element->Child(pick(element->ChildCount())));
        break;
      case 3:
        if (held.size() < 40) held.push_back(document.CreateElement("e"));
        break;
      case 4:
        held.erase(held.begin() + static_cast<std::ptrdiff_t>(pick(held.size())));
        break;
      default:
        if (pick(20) == 0 || document.DocumentElement() == nullptr) document.SetDocumentElement(*element);
        held.push_back(document.DocumentElement());
    }
  }
  EXPECT_GT(moves, 100U) << seed;
  held.clear();
  if (document.DocumentElement() == nullptr) document.SetDocumentElement(*document.CreateElement("r"));
  EXPECT_TRUE(document.LoadXml(FromUtf8(document.Xml())));
}

TEST(XmlDocumentTest, LoadXmlTellsWhatIsWrong) {
  LibXmlDocument document;
  EXPECT_FALSE(document.LoadXml(u"<a>\n<b>\n</a>"));
  EXPECT_EQ(document.DocumentElement(), nullptr);
  EXPECT_EQ(document.Xml(), "");
  EXPECT_NE(ToUtf8(document.LoadError()).find("mismatch"), std::string::npos) << ToUtf8(document.LoadError());
  EXPECT_TRUE(document.LoadError().ends_with(u"(line 3)")) << ToUtf8(document.LoadError());
  for (const std::u16string_view bad : {std::u16string_view(u""), std::u16string_view(u"text"),
                                        std::u16string_view(u"<a/><b/>"), std::u16string_view(u"<a>\0</a>", 8),
                                        std::u16string_view(u"<a b='<'/>"), std::u16string_view(u"<a>&nope;</a>")}) {
    EXPECT_FALSE(document.LoadXml(bad)) << ToUtf8(bad);
    EXPECT_FALSE(document.LoadXml(bad)) << ToUtf8(bad);
    EXPECT_FALSE(document.LoadError().empty()) << ToUtf8(bad);
  }
  EXPECT_TRUE(document.LoadXml(u"<a/>"));
  EXPECT_EQ(document.LoadError(), u"");
}

TEST(XmlDocumentTest, NamedEncodingsPlayNoPart) {
  for (const std::u16string_view encoding : {u"gb2312", u"utf-16", u"utf-8", u"ISO-8859-1", u"no-such"}) {
    LibXmlDocument document;
    const std::u16string text = u"\uFEFF<?xml version='1.0' encoding='" + std::u16string(encoding) + u"'?><a b='é中'/>";
    ASSERT_TRUE(document.LoadXml(text)) << ToUtf8(encoding) << ToUtf8(document.LoadError());
    EXPECT_EQ(document.DocumentElement()->GetAttribute("b"), u"é中");
    EXPECT_EQ(document.Xml(), "<a b=\"é中\"/>\n");
  }
}

TEST(XmlDocumentTest, NothingIsReadFromOutside) {
  const test::TempFolder folder;
  const std::string secret = folder.Write("secret.txt", "treasure");
  LibXmlDocument document;
  const std::string text = "<!DOCTYPE a [<!ENTITY e SYSTEM '" + secret + "'>]><a>&e;</a>";
  document.LoadXml(FromUtf8(text));
  EXPECT_EQ(document.Xml().find("treasure"), std::string::npos) << document.Xml();
}

TEST(XmlDocumentTest, LoadingTheSameTextAgainUndoesChanges) {
  LibXmlDocument document;
  ASSERT_TRUE(document.LoadXml(u"<a/>"));
  document.DocumentElement()->SetAttribute("b", u"1");
  ASSERT_TRUE(document.LoadXml(u"<a/>"));
  EXPECT_EQ(document.Xml(), "<a/>\n");
}

TEST(XmlDocumentTest, SavedTextParsesToTheSameValues) {
  LibXmlDocument document;
  const auto root = document.CreateElement("SearchResult");
  document.SetDocumentElement(*root);
  EXPECT_EQ(document.Xml(), "<SearchResult/>\n");
  const std::u16string value = u"\t\"<a> & 'b'\r\nc\u00a0中\xD83D\xDE00 ";
  const auto item = document.CreateElement("MatchItem");
  item->SetAttribute("v", value);
  item->SetAttribute("w", u"\x01\x1F\uFFFE");
  root->AppendChild(*item);
  const test::TempFolder folder;
  document.Save(FromUtf8(folder / "result.xml"));
  LibXmlDocument loaded;
  ASSERT_TRUE(loaded.LoadXml(FromUtf8(folder.Read("result.xml")))) << ToUtf8(loaded.LoadError());
  EXPECT_EQ(loaded.DocumentElement()->Child(0)->GetAttribute("v"), value);
  EXPECT_EQ(loaded.DocumentElement()->Child(0)->GetAttribute("w"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(loaded.Xml(), document.Xml());
}

}  // namespace
}  // namespace quorvane::native
