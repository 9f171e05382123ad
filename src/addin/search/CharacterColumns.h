#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

// Characters and screen columns of a line under the system's code page, both 1-based. Error 6 for one above 32767.

/// The screen column of character `x`; a character after the line's end counts as that end, one below 1 as the first.
std::int32_t ScreenColumnOf(std::int32_t x, std::u16string_view line);

/// The character at a screen column; for one inside of a wide character the next.
std::int32_t CharacterAt(std::int32_t column, std::u16string_view line);

}  // namespace quorvane
