#include <gtest/gtest.h>

#include <random>

#include "base/DateTime.h"
#include "base/Text.h"
#include "support/ErrorOf.h"

namespace quorvane {

void PrintTo(const DateTime& value, std::ostream* out) {
  *out << ToUtf8(DateText(value, {}));
}

namespace test {

constexpr DateFormat kUs{DateOrder::MonthDayYear, u'/'};
constexpr DateFormat kGerman{DateOrder::DayMonthYear, u'.'};
constexpr DateFormat kIso{DateOrder::YearMonthDay, u'-'};

TEST(DateTime, CountsDaysAndMonths) {
  EXPECT_EQ(DateTime::Of(1970, 1, 1).Day, 0);
  EXPECT_EQ(DateTime::Of(2000, 3, 1).Day - DateTime::Of(2000, 2, 28).Day, 2);
  EXPECT_EQ(DateTime::Of(2100, 3, 1).Day - DateTime::Of(2100, 2, 28).Day, 1);
  EXPECT_EQ(DateTime::Of(2024, 12, 31).MonthNumber(), 2024 * 12 + 12);
  EXPECT_EQ(DateTime::Of(1969, 12, 31, 23, 59, 59), (DateTime{-1, 86399}));
  EXPECT_EQ(ErrorOf([] { DateTime::Of(2023, 2, 29); }), 5);
}

TEST(DateTime, ReadsTextInAnyLocale) {
  const DateTime may = DateTime::Of(2024, 5, 4);
  const DateTime evening = DateTime::Of(2024, 5, 4, 21, 7, 9);
  struct Row {
    const char16_t* text;
    DateFormat format;
    DateTime value;
  };
  const Row rows[] = {
      {u"05/04/2024", kUs, may},
      {u"04.05.2024", kGerman, may},
      {u"2024-05-04", kIso, may},
      {u" 5/4/2024  21:07:09 ", kUs, evening},
      {u"4.5.2024 21:07", kGerman, DateTime::Of(2024, 5, 4, 21, 7, 0)},
      // Written under another locale than it is read.
      {u"2024-05-04", kUs, may},
      {u"25.12.2024", kUs, DateTime::Of(2024, 12, 25)},
      {u"12/25/2024", kGerman, DateTime::Of(2024, 12, 25)},
      {u"05/04/2024", kIso, may},
      {u"4.5.24", kGerman, may},
      {u"4.5.30", kGerman, DateTime::Of(1930, 5, 4)},
      {u"24-05-04", kIso, may},
  };
  for (const Row& row : rows) EXPECT_EQ(ParseDate(row.text, row.format), row.value) << ToUtf8(row.text);
}

TEST(DateTime, RefusesWhatIsNoDate) {
  for (const char16_t* text : {u"", u"today", u"2024", u"2024-05", u"2024-13-01", u"2024-02-30", u"13/13/2024",
                               u"2024-05-04x", u"2024-05-04 ", u"2024-05-04 25:00", u"2024-05-04 10:60",
                               u"2024-05-04 10", u"2024-05-04 10:00x", u"20240504", u"02024-05-04", u"0-0-0"}) {
    const bool blankEnd = std::u16string_view(text).ends_with(u' ');
    EXPECT_EQ(ErrorOf([&] { ParseDate(text, kIso); }), blankEnd ? 0 : 13) << ToUtf8(text);
  }
}

TEST(DateTime, TextComesBack) {
  const unsigned seed = std::random_device()();
  std::mt19937 random(seed);
  const std::int32_t first = DateTime::Of(100, 1, 1).Day;
  const std::int32_t last = DateTime::Of(9999, 12, 31).Day;
  std::uniform_int_distribution<std::int32_t> day(first, last);
  std::uniform_int_distribution<std::int32_t> second(0, 86399);
  for (int i = 0; i < 2000; ++i) {
    const DateTime value{day(random), i % 4 == 0 ? 0 : second(random)};
    for (const DateFormat& format : {kUs, kGerman, kIso}) {
      EXPECT_EQ(ParseDate(DateText(value, format), format), value) << "seed " << seed;
    }
  }
  EXPECT_EQ(DateText(DateTime::Of(2024, 5, 4, 1, 2, 3), kGerman), u"04.05.2024 01:02:03");
}

}  // namespace test
}  // namespace quorvane
