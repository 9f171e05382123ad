#include <gtest/gtest.h>

#include <map>

#include "base/DateTime.h"
#include "base/Text.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/Seed.h"

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
  EXPECT_EQ(Raised([] { DateTime::Of(2023, 2, 29); }), 5);
}

TEST(DateTime, ReadsTextInAnyLocale) {
  const std::map<std::string, DateFormat> formats = {{"us", kUs}, {"german", kGerman}, {"iso", kIso}};
  for (const Row& row : Rows("base/DateTime.rows", "Dates")) {
    EXPECT_EQ(DateText(ParseDate(row.Text(0), formats.at(row.Bytes(1))), kIso), row.Text(2)) << row.Where();
  }
}

TEST(DateTime, RefusesWhatIsNoDate) {
  for (const Row& row : Rows("base/DateTime.rows", "NoDates")) {
    EXPECT_EQ(Raised([&] { ParseDate(row.Text(0), kIso); }), 13) << row.Where();
  }
  EXPECT_EQ(Raised([] { ParseDate(u"2024-05-04 ", kIso); }), 0) << "blanks around it do not count";
}

TEST(DateTime, TextComesBack) {
  std::mt19937 random(test::NewSeed());
  const std::int32_t first = DateTime::Of(100, 1, 1).Day;
  const std::int32_t last = DateTime::Of(9999, 12, 31).Day;
  std::uniform_int_distribution<std::int32_t> day(first, last);
  std::uniform_int_distribution<std::int32_t> second(0, 86399);
  for (int i = 0; i < 2000; ++i) {
    const DateTime value{day(random), i % 4 == 0 ? 0 : second(random)};
    for (const DateFormat& format : {kUs, kGerman, kIso}) {
      EXPECT_EQ(ParseDate(DateText(value, format), format), value);
    }
  }
  EXPECT_EQ(DateText(DateTime::Of(2024, 5, 4, 1, 2, 3), kGerman), u"04.05.2024 01:02:03");
}

}  // namespace test
}  // namespace quorvane
