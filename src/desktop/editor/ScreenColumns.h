#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvane {

class CodePage;

namespace desktop {

/// Screen column (1-based, a wide character takes two) of the unit at `unit` (0-based, at most one behind the last).
std::int32_t ColumnOfUnit(const CodePage& page, std::u16string_view line, std::size_t unit);

/// The unit that stands at a screen column, or covers it; one behind the last for a column behind the line.
std::size_t UnitOfColumn(const CodePage& page, std::u16string_view line, std::int32_t column);

}  // namespace desktop
}  // namespace quorvane
