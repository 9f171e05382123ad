#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "addin/core/StringId.h"

namespace quorvane {

/// Chinese (Simplified) texts stand at their id, English ones this much further.
inline constexpr std::int32_t kEntriesPerLanguage = 1000;

/// The text at an entry of the program's string table; no value when there is none.
std::optional<std::u16string_view> LoadResString(std::int32_t entry);

}  // namespace quorvane
