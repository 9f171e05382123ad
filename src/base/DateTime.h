#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

/// A moment of the user's own time, to the second.
struct DateTime {
  std::int32_t Day = 0;     ///< days since 1970-01-01
  std::int32_t Second = 0;  ///< of the day, 0 to 86399

  bool operator==(const DateTime&) const = default;

  /// The same day without a time.
  DateTime Date() const { return {Day, 0}; }
  /// Year × 12 + month.
  std::int32_t MonthNumber() const;

  /// Month and day count from 1. Raises error 5 for a date or a time that does not exist.
  static DateTime Of(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
};

enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

/// How the user's locale writes a date.
struct DateFormat {
  DateOrder Order = DateOrder::YearMonthDay;
  char16_t Separator = u'-';
};

/// Date text in that form, the year with four digits; the time follows unless it is midnight.
std::u16string DateText(const DateTime& value, const DateFormat& format);

/// Reads what DateText writes, in whichever locale it was written: a year of four digits is known by its place, a
/// number above 12 is no month, and what is still open goes by `format`. Two-digit years are 1930 to 2029. Raises error
/// 13 for a text that is no date.
DateTime ParseDate(std::u16string_view text, const DateFormat& format);

}  // namespace quorvane
