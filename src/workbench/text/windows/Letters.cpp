#include "workbench/text/Letters.h"

#include <windows.h>

namespace quorvane::workbench {

namespace {

/// `c` in the other case by the rules of language, which know more pairs than those of file names, if that is a unit
/// beyond ASCII.
char16_t Mapped(char16_t c, DWORD how) {
  const auto unit = static_cast<wchar_t>(c);
  wchar_t changed = unit;
  if (LCMapStringW(LOCALE_INVARIANT, how | LCMAP_LINGUISTIC_CASING, &unit, 1, &changed, 1) != 1 || changed < 0x80)
    return c;
  return static_cast<char16_t>(changed);
}

}  // namespace

char16_t CapitalOf(char16_t c) {
  return Mapped(c, LCMAP_UPPERCASE);
}

char16_t SmallOf(char16_t c) {
  return Mapped(c, LCMAP_LOWERCASE);
}

bool IsLetterOrDigit(char16_t c) {
  const auto unit = static_cast<wchar_t>(c);
  WORD type = 0;
  return GetStringTypeW(CT_CTYPE1, &unit, 1, &type) != 0 && (type & (C1_ALPHA | C1_DIGIT)) != 0;
}

}  // namespace quorvane::workbench
