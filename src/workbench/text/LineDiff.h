#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace quorvane::workbench {

/// A run of lines that differs: `before` lines [beforeBegin, beforeEnd) became `after` lines [afterBegin, afterEnd).
/// 0-based, exclusive ends; one of the two runs may be empty.
struct DiffHunk {
  std::int32_t beforeBegin = 0;
  std::int32_t beforeEnd = 0;
  std::int32_t afterBegin = 0;
  std::int32_t afterEnd = 0;

  bool operator==(const DiffHunk&) const = default;
};

/// The hunks between two texts of lines, ascending, never touching: between two hunks, before the first and after the
/// last the lines are equal, pair by pair. Near-minimal for small changes and never slower than O(n log n) in the
/// number of lines but for small blocks.
std::vector<DiffHunk> DiffLines(const std::vector<std::string_view>& before,
                                const std::vector<std::string_view>& after);

}  // namespace quorvane::workbench
