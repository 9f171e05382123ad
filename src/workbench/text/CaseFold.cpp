#include "workbench/text/CaseFold.h"

#include <array>
#include <memory>

#include "workbench/text/Letters.h"

namespace quorvane::workbench {

namespace {

bool IsSurrogate(char16_t c) {
  return (c & 0xF800) == 0xD800;
}

char16_t Fold(char16_t c) {
  // By way of the capital: two small letters may share one.
  const char16_t capital = CaseFold::Capital(c);
  return capital < 0x80 || IsSurrogate(capital) ? capital : SmallOf(capital);
}

}  // namespace

char16_t CaseFold::Capital(char16_t c) {
  if (c < 0x80) return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
  if (IsSurrogate(c)) return c;
  return CapitalOf(c);
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
  return !IsSurrogate(c) && IsLetterOrDigit(c);
}

}  // namespace quorvane::workbench
