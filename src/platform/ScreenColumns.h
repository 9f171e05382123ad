#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/Text.h"
#include "platform/CodePage.h"

namespace quorvane {

// Screen columns are 1-based, and a wide character takes two; units are UTF-16, 0-based.

/// What a column means that lies in the second half of a wide character.
enum class InsideWide {
  Character,  ///< that character
  Next,       ///< the one after it
};

/// Column of the unit at `unit`, which may be one after the last; a place after that counts as it.
inline std::int64_t ColumnOfUnit(const CodePage& page, std::u16string_view line, std::size_t unit) {
  const std::u16string_view head = line.substr(0, unit);
  if (IsAscii(head)) return static_cast<std::int64_t>(head.size()) + 1;
  std::int64_t column = 1;
  for (const char16_t c : head) column += page.IsWide(c) ? 2 : 1;
  return column;
}

/// The unit at a column: the first one for a column below 1, one after the last for a column after the line.
inline std::size_t UnitOfColumn(const CodePage& page, std::u16string_view line, std::int64_t column,
                                InsideWide inside) {
  const std::u16string_view head = line.substr(0, static_cast<std::size_t>(std::max<std::int64_t>(column - 1, 0)));
  if (IsAscii(head)) return head.size();
  std::size_t unit = 0;
  std::int64_t at = 1;
  for (; unit < line.size() && at < column; ++unit) at += page.IsWide(line[unit]) ? 2 : 1;
  return inside == InsideWide::Character && at > column && unit > 0 ? unit - 1 : unit;
}

}  // namespace quorvane
