#include "desktop/editor/ScreenColumns.h"

#include <algorithm>

#include "platform/CodePage.h"

namespace quorvane::desktop {

namespace {

std::int32_t Width(const CodePage& page, char16_t c) {
  return page.IsWide(c) ? 2 : 1;
}

}  // namespace

std::int32_t ColumnOfUnit(const CodePage& page, std::u16string_view line, std::size_t unit) {
  std::int32_t column = 1;
  for (const char16_t c : line.substr(0, unit)) column += Width(page, c);
  return column;
}

std::size_t UnitOfColumn(const CodePage& page, std::u16string_view line, std::int32_t column) {
  std::size_t unit = 0;
  for (std::int32_t at = 1; unit < line.size(); ++unit) {
    at += Width(page, line[unit]);
    if (at > column) break;
  }
  return unit;
}

}  // namespace quorvane::desktop
