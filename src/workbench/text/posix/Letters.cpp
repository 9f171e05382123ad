#include "workbench/text/Letters.h"

#include <locale>
#include <stdexcept>

namespace quorvane::workbench {

namespace {

/// The characters of the C library's own Unicode locale.
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

/// `changed` if it is a unit beyond ASCII, else `c`.
char16_t BeyondAscii(wchar_t changed, char16_t c) {
  return changed >= 0x80 && changed <= 0xFFFF ? static_cast<char16_t>(changed) : c;
}

}  // namespace

char16_t CapitalOf(char16_t c) {
  return BeyondAscii(Characters().toupper(static_cast<wchar_t>(c)), c);
}

char16_t SmallOf(char16_t c) {
  return BeyondAscii(Characters().tolower(static_cast<wchar_t>(c)), c);
}

bool IsLetterOrDigit(char16_t c) {
  return Characters().is(std::ctype_base::alnum, static_cast<wchar_t>(c));
}

}  // namespace quorvane::workbench
