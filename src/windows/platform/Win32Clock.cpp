#include "windows/platform/Win32Clock.h"

#include "windows/com/Win32.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

DateTime Win32Clock::Now() {
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  return DateTime::Of(now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond);
}

DateFormat Win32Clock::Format() {
  wchar_t pattern[80];
  const int length = ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, pattern, ARRAYSIZE(pattern));
  return length > 0 ? FormatOf(FromWide(pattern)) : DateFormat();
}

DateFormat Win32Clock::FormatOf(std::u16string_view pattern) {
  const std::size_t day = pattern.find(u'd');
  const std::size_t month = pattern.find(u'M');
  const std::size_t year = pattern.find(u'y');
  DateFormat format;
  if (day == pattern.npos || month == pattern.npos || year == pattern.npos) return format;
  if (year > day) format.Order = month < day ? DateOrder::MonthDayYear : DateOrder::DayMonthYear;
  const std::size_t separator = pattern.find_first_of(u"/-.");
  format.Separator = separator == pattern.npos ? u'/' : pattern[separator];
  return format;
}

}  // namespace quorvane::windows
