#include <gtest/gtest.h>

#include <cstdlib>

#include "native/codepages/CodePages.h"

namespace quorvane::native {
namespace {

TEST(CodePageOfLocaleTest, GoesByTheLanguage) {
  struct Case {
    const char* All;
    const char* Type;
    const char* Lang;
    const char* Page;
  };
  const Case cases[] = {
      {nullptr, nullptr, nullptr, "1252"},      {nullptr, nullptr, "C", "1252"},
      {nullptr, nullptr, "zh_CN.UTF-8", "936"}, {nullptr, nullptr, "zh_TW.Big5", "950"},
      {nullptr, nullptr, "zh_HK", "950"},       {nullptr, "ja_JP.eucJP", "de_DE", "932"},
      {"ko_KR.UTF-8", "ja_JP", "ru_RU", "949"}, {"", "", "ru_RU.KOI8-R", "1251"},
      {nullptr, nullptr, "pl_PL@euro", "1250"}, {nullptr, nullptr, "de_DE.UTF-8", "1252"},
      {"POSIX", nullptr, "ja_JP", "1252"},      {nullptr, nullptr, "el", "1253"},
  };
  const auto set = [](const char* name, const char* value) {
    return value != nullptr ? setenv(name, value, 1) : unsetenv(name);
  };
  for (const Case& c : cases) {
    set("LC_ALL", c.All);
    set("LC_CTYPE", c.Type);
    set("LANG", c.Lang);
    EXPECT_EQ(CodePageOfLocale(), c.Page) << (c.All ? c.All : "-") << (c.Lang ? c.Lang : "-");
  }
}

}  // namespace
}  // namespace quorvane::native
