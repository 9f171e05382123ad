#pragma once

#include <cstdint>
#include <string>

namespace quorvane::workbench {

/// Lines that a change adds and removes; a rewritten line counts on both sides.
struct LineCounts {
  std::int32_t added = 0;
  std::int32_t removed = 0;

  bool operator==(const LineCounts&) const = default;
};

/// The change from `before` to `after`, both bytes of one file, in the form that `patch -p0` takes; empty when they are
/// equal. A line ends with LF alone, as patch sees it: a CR is part of its line. `path` is quoted where it holds a
/// blank, a quote, a backslash or a control character.
std::string UnifiedDiff(const std::string& path, const std::string& before, const std::string& after);

/// How many lines the same change adds and removes.
LineCounts CountChangedLines(const std::string& before, const std::string& after);

}  // namespace quorvane::workbench
