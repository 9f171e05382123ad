#include <gtest/gtest.h>

#include "base/Text.h"
#include "support/Rows.h"

namespace quorvane::test {

TEST(Text, Utf8AndUtf16) {
  for (const Row& row : Rows("base/Text.rows", "Utf")) {
    EXPECT_EQ(FromUtf8(row.Bytes(1)), row.Text(2)) << row.Where();
    EXPECT_EQ(ToUtf8(row.Text(2)), row.Bytes(row.Count() > 3 ? 3 : 1)) << row.Where();
  }
  for (const Row& row : Rows("base/Text.rows", "LoneSurrogates")) {
    EXPECT_EQ(ToUtf8(row.Text(1)), row.Bytes(2)) << row.Where();
  }
}

}  // namespace quorvane::test
