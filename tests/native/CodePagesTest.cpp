#include <gtest/gtest.h>

#include <algorithm>

#include "native/codepages/CodePages.h"
#include "native/codepages/LikelyPages.h"
#include "support/Raised.h"
#include "support/Rows.h"

namespace quorvane::native {
namespace {

std::u16string Decoded(const CodePage& page, std::string_view bytes) {
  std::u16string text = u"<";
  page.Decode(bytes, text);
  EXPECT_TRUE(text.starts_with(u'<'));
  return text.substr(1);
}

/// The bytes of `text`; "!N" when the character at N has none.
std::string Encoded(const CodePage& page, std::u16string_view text) {
  std::string bytes = "<";
  std::size_t failedAt = 0;
  if (!page.Encode(text, bytes, failedAt)) return "!" + std::to_string(failedAt) + bytes.substr(1);
  return bytes.substr(1);
}

TEST(CodePagesTest, Names) {
  for (const test::Row& row : test::Rows("native/CodePages.rows", "Names")) {
    EXPECT_EQ(NewCodePage(row.Bytes(0))->Name(), row.Bytes(1)) << row.Where();
  }
  const auto error = test::Raised([] { NewCodePage("klingon"); });
  EXPECT_TRUE(error.Says("klingon") && error.Says("936")) << error;
}

TEST(CodePagesTest, LikelyPagesOfAText) {
  for (const test::Row& row : test::Rows("native/CodePages.rows", "Likely")) {
    SCOPED_TRACE(row.Where());
    std::string all;
    for (const std::string& page : LikelyPages(row.Bytes(0))) all += (all.empty() ? "" : "|") + page;
    EXPECT_EQ(all, row.Bytes(1));
    const bool western = all.empty() || all == "1252";
    EXPECT_EQ(Readable("1252", row.Bytes(0)) >= 0.7, western) << Readable("1252", row.Bytes(0));
  }
  EXPECT_EQ(&SharedCodePage("big5"), &SharedCodePage("950"));
}

TEST(CodePagesTest, SingleBytes) {
  for (const test::Row& row : test::Rows("native/CodePages.rows", "SingleBytes")) {
    const auto page = NewCodePage(row.Bytes(0));
    EXPECT_EQ(Decoded(*page, row.Bytes(1)), row.Text(2)) << row.Where();
    EXPECT_EQ(Encoded(*page, row.Text(2)), row.Bytes(1)) << row.Where();
    EXPECT_FALSE(page->AsciiTrailBytes());
    EXPECT_FALSE(page->IsWide(u'é'));
  }
  EXPECT_EQ(Encoded(*NewCodePage("1252"), u"ab中"), "!2ab");
  EXPECT_EQ(Encoded(*NewCodePage("1252"), u"\xDC80"), "!0");  // 0x80 is a character here
}

/// All bytes, all pairs and all pairs between ASCII: what they decode to is encoded to bytes that decode to the same.
TEST(CodePagesTest, EveryPairOfBytesComesBack) {
  for (const char* name : {"874", "932", "936", "949", "950", "1250", "1251", "1252", "1253", "1254", "1255", "1256",
                           "1257", "1258", "28591", "UTF-8"}) {
    const auto page = NewCodePage(name);
    std::size_t exact = 0;
    for (int pair = 0; pair < 0x10000; ++pair) {
      const std::string bytes = {'a', static_cast<char>(pair >> 8), static_cast<char>(pair & 0xFF), '0'};
      const std::u16string text = Decoded(*page, bytes);
      const std::string back = Encoded(*page, text);
      ASSERT_EQ(Decoded(*page, back), text) << name << " " << std::hex << pair;
      const auto isEscape = [](char16_t c) { return c >= 0xDC80 && c <= 0xDCFF; };
      if (std::any_of(text.begin(), text.end(), isEscape)) {
        ASSERT_EQ(back, bytes) << name << " " << std::hex << pair;
      }
      if (back == bytes) ++exact;
    }
    EXPECT_GE(exact, 0x10000U - 450U) << name;  // 932 and 950 have characters with two codes
  }
}

TEST(CodePagesTest, DoubleBytes) {
  for (const test::Row& row : test::Rows("native/CodePages.rows", "DoubleBytes")) {
    const auto page = NewCodePage(row.Bytes(0));
    EXPECT_EQ(Decoded(*page, row.Bytes(1)), row.Text(2)) << row.Where();
    EXPECT_EQ(Encoded(*page, row.Text(2)), row.Bytes(1)) << row.Where();
    EXPECT_TRUE(page->AsciiTrailBytes());
  }
  const auto japanese = NewCodePage("932");
  EXPECT_TRUE(japanese->IsWide(u'ソ'));
  EXPECT_FALSE(japanese->IsWide(u'ｱ'));
  EXPECT_FALSE(japanese->IsWide(u'\xDC81'));
  EXPECT_FALSE(japanese->IsWide(u'é'));
  EXPECT_FALSE(japanese->IsWide(u'\\'));
  EXPECT_EQ(Encoded(*japanese, u"abcdeソé"), "!6abcde\x83\x5C");
}

TEST(CodePagesTest, Utf8) {
  const auto page = NewCodePage("utf-8");
  for (const test::Row& row : test::Rows("native/CodePages.rows", "Utf")) {
    EXPECT_EQ(Decoded(*page, row.Bytes(0)), row.Text(1)) << row.Where();
    EXPECT_EQ(Encoded(*page, row.Text(1)), row.Bytes(0)) << row.Where();
  }
  EXPECT_EQ(Encoded(*page, u"ab\xD83D"), "!2ab");
  EXPECT_EQ(Encoded(*page, u"\xDE00"), "!0");
  for (const char16_t wide : std::u16string_view(u"中가ア　！ￓ￦\u1100\u2E80")) {
    EXPECT_EQ(page->IsWide(wide), wide != u'ￓ') << std::hex << static_cast<unsigned>(wide);
  }
  for (const char16_t narrow : std::u16string_view(u"aéЖ\u10FF\u1160ｱ\xD83D\xDE00\u303F")) {
    EXPECT_FALSE(page->IsWide(narrow)) << std::hex << static_cast<unsigned>(narrow);
  }
}

}  // namespace
}  // namespace quorvane::native
