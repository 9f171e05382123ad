#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace quorvane::desktop {

/// One row of three texts side by side. Lines are 0-based; -1 where a text has none in this row.
struct ThreeWayRow {
  std::int32_t opened = -1;
  std::int32_t mine = -1;
  std::int32_t theirs = -1;
  bool mineDiffers = false;  ///< belongs to a place that was changed here
  bool theirsDiffers = false;

  bool operator==(const ThreeWayRow&) const = default;
};

using TextLines = std::vector<std::u16string_view>;

/// Lays two texts beside the one that both come from. What neither changed stands in one row; a place that either
/// changed takes as many rows as its longest form.
std::vector<ThreeWayRow> AlignThree(const TextLines& opened, const TextLines& mine, const TextLines& theirs);

}  // namespace quorvane::desktop
