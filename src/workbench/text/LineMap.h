#pragma once

#include <cstdint>
#include <vector>

#include "workbench/text/LineDiff.h"

namespace quorvane::workbench {

/// Answers, for single lines of two texts, what their hunks say. Lines are 0-based.
class LineMap {
 public:
  LineMap(const std::vector<DiffHunk>& hunks, std::size_t beforeCount, std::size_t afterCount);

  /// The equal line after, or -1 when the line changed.
  std::int32_t Partner(std::int32_t before) const { return partner_[static_cast<std::size_t>(before)]; }
  /// The line that an equal or a rewritten line became: lines of a hunk pair in order. -1 when there is none.
  std::int32_t Successor(std::int32_t before) const;

  /// The first hunk that touches the lines [first, last], or -1.
  std::int32_t HunkBefore(std::int32_t first, std::int32_t last) const { return Touching(hunkBefore_, first, last); }
  std::int32_t HunkAfter(std::int32_t first, std::int32_t last) const { return Touching(hunkAfter_, first, last); }

  const DiffHunk& Hunk(std::int32_t index) const { return hunks_[static_cast<std::size_t>(index)]; }

 private:
  static std::int32_t Touching(const std::vector<std::int32_t>& hunkOf, std::int32_t first, std::int32_t last);

  std::vector<DiffHunk> hunks_;
  std::vector<std::int32_t> partner_;
  std::vector<std::int32_t> hunkBefore_, hunkAfter_;  ///< of each line; -1 for an equal one
};

}  // namespace quorvane::workbench
