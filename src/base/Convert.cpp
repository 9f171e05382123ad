#include "base/Convert.h"

#include <algorithm>

#include "base/Checked.h"
#include "base/Error.h"
#include "base/Text.h"

namespace quorvane {

namespace {

constexpr std::int64_t kBeyondAll = std::int64_t{1} << 40;  // out of range for every type here

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

std::u16string_view TakeDigits(std::u16string_view& rest) {
  const auto end = std::find_if_not(rest.begin(), rest.end(), IsDigit);
  const auto length = static_cast<std::size_t>(end - rest.begin());
  const std::u16string_view digits = rest.substr(0, length);
  rest.remove_prefix(length);
  return digits;
}

/// Whether what stands after the decimal point rounds the number before it up.
bool RoundsUp(std::u16string_view fraction, bool odd) {
  if (fraction.empty() || fraction.front() != u'5') return !fraction.empty() && fraction.front() > u'5';
  return odd || fraction.find_first_not_of(u'0', 1) != std::u16string_view::npos;
}

/// A decimal number: its rounded value, and whether it is exactly 0.
struct Decimal {
  std::int64_t rounded = 0;
  bool zero = true;
};

Decimal ParseDecimal(std::u16string_view text) {
  std::u16string_view rest = TrimBlanks(text);
  const bool negative = !rest.empty() && rest.front() == u'-';
  if (!rest.empty() && (negative || rest.front() == u'+')) rest.remove_prefix(1);
  const std::u16string_view whole = TakeDigits(rest);
  std::u16string_view fraction;
  if (!rest.empty() && rest.front() == u'.') {
    rest.remove_prefix(1);
    fraction = TakeDigits(rest);
  }
  if (!rest.empty() || (whole.empty() && fraction.empty())) RaiseError(ErrorNumber::TypeMismatch);

  Decimal number;
  for (const char16_t c : whole) number.rounded = std::min(number.rounded * 10 + (c - u'0'), kBeyondAll);
  number.zero = number.rounded == 0 && fraction.find_first_not_of(u'0') == std::u16string_view::npos;
  if (RoundsUp(fraction, number.rounded % 2 != 0)) ++number.rounded;
  if (negative) number.rounded = -number.rounded;
  return number;
}

}  // namespace

std::int32_t ToLong(std::u16string_view text) {
  return Checked32(ParseDecimal(text).rounded);
}

std::int16_t ToInteger(std::u16string_view text) {
  return Checked16(ParseDecimal(text).rounded);
}

bool ToBoolean(std::u16string_view text) {
  if (EqualsNoCaseAscii(text, u"True")) return true;
  if (EqualsNoCaseAscii(text, u"False")) return false;
  return !ParseDecimal(text).zero;
}

std::u16string BooleanText(bool value) {
  return value ? u"True" : u"False";
}

}  // namespace quorvane
