#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "base/Error.h"
#include "native/codepages/CodePages.h"
#include "support/Raised.h"

namespace quorvane::native {
namespace {

using namespace std::string_literals;

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
  const std::pair<const char*, const char*> names[] = {
      {"1252", "1252"},   {"cp1251", "1251"},      {"Windows-1250", "1250"}, {"932", "932"},  {"Shift_JIS", "932"},
      {"SJIS", "932"},    {"gbk", "936"},          {"cp949", "949"},         {"BIG5", "950"}, {"utf8", "UTF-8"},
      {"65001", "UTF-8"}, {"ISO-8859-1", "28591"}, {"latin1", "28591"},      {"874", "874"},  {"ms932", "932"},
  };
  for (const auto& [name, usual] : names) EXPECT_EQ(NewCodePage(name)->Name(), usual) << name;
  const auto error = test::Raised([] { NewCodePage("klingon"); });
  EXPECT_TRUE(error.Says("klingon") && error.Says("936")) << error;
}

TEST(CodePagesTest, SingleBytes) {
  struct Case {
    const char* Page;
    std::string Bytes;
    std::u16string Text;
  };
  const Case cases[] = {
      {"1252", "a\x80\x81\x8D\xE9\xFF~"s, u"a\u20AC\u0081\u008Dé\u00FF~"},
      {"1251", "\xC0\x98\xFF"s, u"А\u0098я"},
      {"1250", "\xA5\x81"s, u"Ą\u0081"},
      {"1253", "\xE1\xAA\xD2"s, u"α\xDCAA\xDCD2"},
      {"1255", "\xE0\xD4\xC8\xD9"s, u"א\u05F0\u05B8\xDCD9"},
      {"1258", "A\xCC\xFE\xD2"s, u"A\u0300\u20AB\u0309"},
      {"874", "\xA1\xDB"s, u"ก\xDCDB"},
      {"28591", "\x80\xFF"s, u"\u0080\u00FF"},
  };
  for (const Case& c : cases) {
    const auto page = NewCodePage(c.Page);
    EXPECT_EQ(Decoded(*page, c.Bytes), c.Text) << c.Page;
    EXPECT_EQ(Encoded(*page, c.Text), c.Bytes) << c.Page;
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
  struct Case {
    const char* Page;
    std::string Bytes;
    std::u16string Text;
  };
  const Case cases[] = {
      {"932", "\x83\x5C\\\xB1~"s, u"ソ\\ｱ~"},      {"932", "\x80\xA0\xFD\xFF\x85"s, u"\u0080\u00A0\uF8F1\uF8F3\xDC85"},
      {"932", "\x81\xCA\x87\x54"s, u"￢Ⅰ"},        {"936", "\xD6\xD0\x80\xA1\xAA\xFF"s, u"中\u20AC—\xDCFF"},
      {"936", "\x81\x0D\x81"s, u"\xDC81\r\xDC81"}, {"949", "\xB0\xA1\\"s, u"가\\"},
      {"950", "\xA4\xA4\xB3\x5C"s, u"中許"},
  };
  for (const Case& c : cases) {
    const auto page = NewCodePage(c.Page);
    EXPECT_EQ(Decoded(*page, c.Bytes), c.Text) << c.Page;
    EXPECT_EQ(Encoded(*page, c.Text), c.Bytes) << c.Page;
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
  struct Case {
    std::string Bytes;
    std::u16string Text;
  };
  const Case cases[] = {
      {"aé中\xF0\x9F\x98\x80z"s, u"aé中\xD83D\xDE00z"},
      {"\xC0\x80"s, u"\xDCC0\xDC80"},
      {"\xE0\x80\x80"s, u"\xDCE0\xDC80\xDC80"},
      {"\xED\xA0\x80"s, u"\xDCED\xDCA0\xDC80"},
      {"\xEE\x80\x80\xED\x9F\xBF"s, u"\uE000\uD7FF"},
      {"\xF4\x8F\xBF\xBF\xF4\x90\x80\x80"s, u"\xDBFF\xDFFF\xDCF4\xDC90\xDC80\xDC80"},
      {"\xF0\x8F\xBF\xBF"s, u"\xDCF0\xDC8F\xDCBF\xDCBF"},
      {"\xF5\x80\xFF"s, u"\xDCF5\xDC80\xDCFF"},
      {"\xE4\xB8"s, u"\xDCE4\xDCB8"},
      {"\xE4\xB8\x41\xE4"s, u"\xDCE4\xDCB8\x41\xDCE4"},
      {"\xDF\xBF\xC2\x80"s, u"\u07FF\u0080"},
  };
  const auto page = NewCodePage("utf-8");
  for (const Case& c : cases) {
    EXPECT_EQ(Decoded(*page, c.Bytes), c.Text);
    EXPECT_EQ(Encoded(*page, c.Text), c.Bytes);
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
