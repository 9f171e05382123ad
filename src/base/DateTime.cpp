#include "base/DateTime.h"

#include <array>
#include <chrono>
#include <optional>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane {

namespace {

using std::chrono::day;
using std::chrono::local_days;
using std::chrono::month;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr int kSecondsPerMinute = 60;
constexpr int kSecondsPerHour = 3600;

struct Number {
  int value = 0;
  std::size_t digits = 0;
};

std::optional<DateTime> Find(int y, int m, int d, int hour, int minute, int second) {
  const year_month_day date(year(y), month(static_cast<unsigned>(m)), day(static_cast<unsigned>(d)));
  const bool time = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
  if (y < 100 || y > 9999 || m < 1 || m > 12 || d < 1 || d > 31 || !date.ok() || !time) return std::nullopt;
  const auto days = local_days(date).time_since_epoch().count();
  return DateTime{static_cast<std::int32_t>(days), hour * kSecondsPerHour + minute * kSecondsPerMinute + second};
}

year_month_day CivilOf(std::int32_t days) {
  return year_month_day(local_days(std::chrono::days(days)));
}

std::u16string Padded(std::int64_t number, std::size_t width) {
  std::u16string text = ToText(number);
  if (text.size() < width) text.insert(0, width - text.size(), u'0');
  return text;
}

/// Takes numbers and separators off the front of a text; any mismatch fails for good.
class Reader {
 public:
  explicit Reader(std::u16string_view text) : rest_(text) {}

  Number TakeNumber() {
    Number number;
    while (!rest_.empty() && rest_.front() >= u'0' && rest_.front() <= u'9' && number.digits < 4) {
      number.value = number.value * 10 + (rest_.front() - u'0');
      ++number.digits;
      rest_.remove_prefix(1);
    }
    if (number.digits == 0) failed_ = true;
    return number;
  }
  bool Take(char16_t c) {
    if (rest_.empty() || rest_.front() != c) return false;
    rest_.remove_prefix(1);
    return true;
  }
  void Expect(bool taken) { failed_ = failed_ || !taken; }
  void SkipBlanks() {
    while (Take(u' ')) continue;
  }
  bool AtEnd() const { return rest_.empty(); }
  bool Failed() const { return failed_; }

 private:
  std::u16string_view rest_;
  bool failed_ = false;
};

int FullYear(const Number& number) {
  if (number.digits > 2) return number.value;
  return number.value + (number.value < 30 ? 2000 : 1900);
}

DateOrder OrderOf(const std::array<Number, 3>& parts, DateOrder usual) {
  if (parts[0].digits > 2) return DateOrder::YearMonthDay;
  if (parts[2].digits > 2 && usual == DateOrder::YearMonthDay) return DateOrder::MonthDayYear;
  return usual;
}

}  // namespace

std::int32_t DateTime::MonthNumber() const {
  const year_month_day date = CivilOf(Day);
  return static_cast<int>(date.year()) * 12 + static_cast<int>(static_cast<unsigned>(date.month()));
}

DateTime DateTime::Of(int y, int m, int d, int hour, int minute, int second) {
  const auto value = Find(y, m, d, hour, minute, second);
  if (!value) RaiseError(ErrorNumber::InvalidProcedureCall);
  return *value;
}

std::u16string DateText(const DateTime& value, const DateFormat& format) {
  const year_month_day date = CivilOf(value.Day);
  const std::u16string y = Padded(static_cast<int>(date.year()), 4);
  const std::u16string m = Padded(static_cast<unsigned>(date.month()), 2);
  const std::u16string d = Padded(static_cast<unsigned>(date.day()), 2);
  const std::u16string s(1, format.Separator);
  std::u16string text;
  switch (format.Order) {
    case DateOrder::MonthDayYear:
      text = m + s + d + s + y;
      break;
    case DateOrder::DayMonthYear:
      text = d + s + m + s + y;
      break;
    case DateOrder::YearMonthDay:
      text = y + s + m + s + d;
      break;
  }
  if (value.Second == 0) return text;
  text += u" " + Padded(value.Second / kSecondsPerHour, 2);
  text += u":" + Padded(value.Second / kSecondsPerMinute % 60, 2);
  return text + u":" + Padded(value.Second % 60, 2);
}

DateTime ParseDate(std::u16string_view text, const DateFormat& format) {
  Reader reader(TrimBlanks(text));
  std::array<Number, 3> parts;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    parts[i] = reader.TakeNumber();
    if (i < 2) reader.Expect(reader.Take(u'/') || reader.Take(u'-') || reader.Take(u'.'));
  }
  std::array<int, 3> time{};
  if (!reader.AtEnd()) {
    reader.Expect(reader.Take(u' '));
    reader.SkipBlanks();
    time[0] = reader.TakeNumber().value;
    reader.Expect(reader.Take(u':'));
    time[1] = reader.TakeNumber().value;
    if (reader.Take(u':')) time[2] = reader.TakeNumber().value;
  }

  const DateOrder order = OrderOf(parts, format.Order);
  const bool yearFirst = order == DateOrder::YearMonthDay;
  int m = (yearFirst || order == DateOrder::DayMonthYear ? parts[1] : parts[0]).value;
  int d = (yearFirst ? parts[2] : order == DateOrder::DayMonthYear ? parts[0] : parts[1]).value;
  if (m > 12 && !yearFirst) std::swap(m, d);
  const auto value = Find(FullYear(yearFirst ? parts[0] : parts[2]), m, d, time[0], time[1], time[2]);
  if (reader.Failed() || !reader.AtEnd() || !value) RaiseError(ErrorNumber::TypeMismatch);
  return *value;
}

}  // namespace quorvane
