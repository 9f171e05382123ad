#include <gtest/gtest.h>

#include "base/Convert.h"
#include "base/Text.h"
#include "support/ErrorOf.h"

namespace quorvane::test {

TEST(Convert, NumbersAndWhatIsNone) {
  struct Row {
    const char16_t* text;
    std::int32_t value;
    std::int32_t error;
  };
  const Row rows[] = {
      {u"0", 0, 0},
      {u" -12 ", -12, 0},
      {u"+7", 7, 0},
      {u"007", 7, 0},
      {u"32767", 32767, 0},
      {u"2.5", 2, 0},
      {u"3.5", 4, 0},
      {u"2.51", 3, 0},
      {u"-2.5", -2, 0},
      {u".5", 0, 0},
      {u"0.500", 0, 0},
      {u"1.5001", 2, 0},
      {u"", 0, 13},
      {u"  ", 0, 13},
      {u"-", 0, 13},
      {u"abc", 0, 13},
      {u"12x", 0, 13},
      {u"1 2", 0, 13},
      {u".", 0, 13},
      {u"1,5", 0, 13},
      {u"--1", 0, 13},
      {u"32768", 0, 6},
      {u"-32769", 0, 6},
      {u"32767.5", 0, 6},
      {u"１", 0, 13},
      {u"99999999999999999999999", 0, 6},
      {u"-99999999999999999999999", 0, 6},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ErrorOf([&] { EXPECT_EQ(ToInteger(row.text), row.value); }), row.error) << ToUtf8(row.text);
  }
  EXPECT_EQ(ToLong(u"2147483647"), 2147483647);
  EXPECT_EQ(ToLong(u"-2147483648"), -2147483647 - 1);
  EXPECT_EQ(ErrorOf([] { ToLong(u"2147483648"); }), 6);
}

TEST(Convert, Booleans) {
  for (const char16_t* text : {u"True", u"true", u"-1", u"1", u"0.2"}) EXPECT_TRUE(ToBoolean(text)) << ToUtf8(text);
  for (const char16_t* text : {u"False", u"FALSE", u"0", u"0.0"}) EXPECT_FALSE(ToBoolean(text)) << ToUtf8(text);
  for (const char16_t* text : {u"", u"yes", u"Truth"}) EXPECT_EQ(ErrorOf([&] { ToBoolean(text); }), 13);
  EXPECT_EQ(BooleanText(true) + BooleanText(false), u"TrueFalse");
}

}  // namespace quorvane::test
