#include "workbench/text/CaseFold.h"

#include <array>
#include <locale>
#include <memory>
#include <stdexcept>

namespace quorvane::workbench {

namespace {

/// The characters of the C library's own Unicode locale, whatever the locale of the user.
const std::ctype<wchar_t>& Characters() {
  static const std::locale locale = [] {
    try {
      return std::locale("C.UTF-8");
    } catch (const std::runtime_error&) {
      return std::locale::classic();  // knows ASCII alone
    }
  }();
  return std::use_facet<std::ctype<wchar_t>>(locale);
}

bool IsSurrogate(char16_t c) {
  return (c & 0xF800) == 0xD800;
}

/// `changed` if it is a unit beyond ASCII, else `c`.
char16_t BeyondAscii(wchar_t changed, char16_t c) {
  return changed >= 0x80 && changed <= 0xFFFF ? static_cast<char16_t>(changed) : c;
}

char16_t Fold(char16_t c) {
  // By way of the capital: two small letters may share one.
  const auto capital = static_cast<wchar_t>(CaseFold::Capital(c));
  return BeyondAscii(Characters().tolower(capital), static_cast<char16_t>(capital));
}

}  // namespace

char16_t CaseFold::Capital(char16_t c) {
  if (c < 0x80) return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
  if (IsSurrogate(c)) return c;
  return BeyondAscii(Characters().toupper(static_cast<wchar_t>(c)), c);
}

const char16_t* CaseFold::Table() {
  static const auto table = [] {
    auto units = std::make_unique<std::array<char16_t, 0x10000>>();
    for (std::size_t c = 0; c < units->size(); ++c) {
      const auto unit = static_cast<char16_t>(c);
      (*units)[c] = c < 0x80 ? OfAscii(unit) : Fold(unit);
    }
    return units;
  }();
  return table->data();
}

bool IsWordUnit(char16_t c) {
  if (c < 0x80) return (c >= u'0' && c <= u'9') || c == u'_' || CaseFold::Of(c) != CaseFold::Capital(c);
  return !IsSurrogate(c) && Characters().is(std::ctype_base::alnum, static_cast<wchar_t>(c));
}

}  // namespace quorvane::workbench
