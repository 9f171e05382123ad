#include <gtest/gtest.h>

#include <cstdlib>

#include "native/codepages/CodePages.h"
#include "support/Rows.h"

namespace quorvane::native {
namespace {

TEST(CodePageOfLocaleTest, GoesByTheLanguage) {
  for (const test::Row& row : test::Rows("native/CodePages.rows", "Locales")) {
    std::size_t cell = 0;
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
      const std::string value = row.Bytes(cell++);
      value == "(none)" ? unsetenv(name) : setenv(name, value.c_str(), 1);
    }
    EXPECT_EQ(CodePageOfLocale(), row.Bytes(3)) << row.Where();
  }
}

}  // namespace
}  // namespace quorvane::native
