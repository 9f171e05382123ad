#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "native/codepages/CodePages.h"
#include "platform/CodePage.h"

namespace quorvane::native {
namespace {

/// The page of the system, and its characters where the system itself says that bytes are one.
TEST(CodePageOfLocaleTest, IsThatOfTheSystem) {
  const std::string name = CodePageOfLocale();
  EXPECT_EQ(name, std::to_string(GetACP()));
  const auto page = NewCodePage(name);
  int characters = 0;
  for (int pair = 0x8140; pair < 0x10000; ++pair) {
    const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair & 0xFF)};
    if (IsDBCSLeadByte(static_cast<BYTE>(bytes[0])) == 0) continue;
    wchar_t unit = 0;
    if (MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, bytes, 2, &unit, 1) != 1) continue;
    std::u16string text;
    page->Decode({bytes, 2}, text);
    ASSERT_EQ(text, std::u16string(1, static_cast<char16_t>(unit))) << std::hex << pair;
    ++characters;
  }
  EXPECT_EQ(characters > 5000, page->AsciiTrailBytes()) << characters;
}

}  // namespace
}  // namespace quorvane::native
