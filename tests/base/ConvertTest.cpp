#include <gtest/gtest.h>

#include "base/Convert.h"
#include "base/Text.h"
#include "support/Raised.h"
#include "support/Rows.h"

namespace quorvane::test {

TEST(Convert, NumbersAndWhatIsNone) {
  for (const Row& row : Rows("base/Convert.rows", "Integers")) {
    EXPECT_EQ(Raised([&] { EXPECT_EQ(ToInteger(row.Text(0)), row.Number(1)); }), row.Number(2)) << row.Where();
  }
  EXPECT_EQ(ToLong(u"2147483647"), 2147483647);
  EXPECT_EQ(ToLong(u"-2147483648"), -2147483647 - 1);
  EXPECT_EQ(Raised([] { ToLong(u"2147483648"); }), 6);
}

TEST(Convert, Booleans) {
  for (const char16_t* text : {u"True", u"true", u"-1", u"1", u"0.2"}) EXPECT_TRUE(ToBoolean(text)) << ToUtf8(text);
  for (const char16_t* text : {u"False", u"FALSE", u"0", u"0.0"}) EXPECT_FALSE(ToBoolean(text)) << ToUtf8(text);
  for (const char16_t* text : {u"", u"yes", u"Truth"}) EXPECT_EQ(Raised([&] { ToBoolean(text); }), 13);
  EXPECT_EQ(BooleanText(true) + BooleanText(false), u"TrueFalse");
}

}  // namespace quorvane::test
