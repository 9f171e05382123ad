#include <gtest/gtest.h>

#include <string>

#include "base/Text.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/LibXmlTable.h"

namespace quorvane::native {
namespace {

TEST(XmlDocumentTest, LoadXmlTellsWhatIsWrong) {
  LibXmlDocument document;
  EXPECT_FALSE(document.LoadXml(u"<a>\n<b>\n</a>"));
  EXPECT_TRUE(document.IsEmpty());
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
  EXPECT_FALSE(document.IsEmpty());
  EXPECT_TRUE(LibXmlDocument().IsEmpty());
}

TEST(XmlDocumentTest, NamedEncodingsPlayNoPart) {
  LibXmlTable table(XmlTableShape{"r", "e", {}});
  table.BeginRow();
  for (const std::u16string_view encoding : {u"gb2312", u"utf-16", u"utf-8", u"ISO-8859-1", u"no-such"}) {
    LibXmlDocument document;
    const std::u16string text = u"\uFEFF<?xml version='1.0' encoding='" + std::u16string(encoding) +
                                u"'?><xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
                                u"<xsl:template match='e'><x>é中</x></xsl:template></xsl:stylesheet>";
    ASSERT_TRUE(document.LoadXml(text)) << ToUtf8(encoding) << ToUtf8(document.LoadError());
    EXPECT_NE(table.Transform(0, document).find(u"<x>é中</x>"), std::u16string::npos) << ToUtf8(encoding);
  }
}

}  // namespace
}  // namespace quorvane::native
