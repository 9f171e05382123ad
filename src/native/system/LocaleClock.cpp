#include "native/system/LocaleClock.h"

#include <langinfo.h>
#include <locale.h>
#include <time.h>

#include <algorithm>

namespace quorvane::native {

namespace {
constexpr int kLastSecond = 59;  // a leap second counts as the one before it
}

DateTime LocaleClock::Now() {
  const time_t now = time(nullptr);
  tm local{};
  localtime_r(&now, &local);
  return DateTime::Of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                      std::min(local.tm_sec, kLastSecond));
}

DateFormat LocaleClock::Format() {
  const locale_t locale = newlocale(LC_TIME_MASK, "", nullptr);
  if (locale == nullptr) return {};
  const DateFormat format = FormatOf(nl_langinfo_l(D_FMT, locale));
  freelocale(locale);
  return format;
}

DateFormat LocaleClock::FormatOf(std::string_view pattern) {
  const std::size_t day = pattern.find_first_of("de");
  const std::size_t month = pattern.find_first_of("mbB");
  const std::size_t year = pattern.find_first_of("yY");
  DateFormat format;
  if (day == std::string_view::npos || month == std::string_view::npos || year == std::string_view::npos) {
    if (pattern == "%D") format = {DateOrder::MonthDayYear, u'/'};
    return format;
  }
  if (year > day) format.Order = month < day ? DateOrder::MonthDayYear : DateOrder::DayMonthYear;
  const std::size_t separator = pattern.find_first_of("/-.");
  format.Separator = separator == std::string_view::npos ? u'/' : static_cast<char16_t>(pattern[separator]);
  return format;
}

}  // namespace quorvane::native
