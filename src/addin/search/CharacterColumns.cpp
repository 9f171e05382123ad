#include "addin/search/CharacterColumns.h"

#include <algorithm>

#include "base/Checked.h"
#include "platform/Platform.h"
#include "platform/ScreenColumns.h"

namespace quorvane {

std::int32_t ScreenColumnOf(std::int32_t x, std::u16string_view line) {
  const auto unit = static_cast<std::size_t>(std::max(Checked16(x) - 1, 0));
  return Checked16(ColumnOfUnit(ThePlatform().AnsiCodePage(), line, unit));
}

std::int32_t CharacterAt(std::int32_t column, std::u16string_view line) {
  const CodePage& page = ThePlatform().AnsiCodePage();
  const std::size_t unit = UnitOfColumn(page, line, Checked16(column), InsideWide::Next);
  Checked16(ColumnOfUnit(page, line, unit));
  return Checked16(static_cast<std::int64_t>(unit) + 1);
}

}  // namespace quorvane
