#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/text/LineDiff.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::workbench {

/// Where one hidden line of a file stands after an edit.
struct PlacedHiddenLine {
  std::size_t index = 0;   ///< in SourceFile::Hidden()
  std::int32_t after = 0;  ///< the line of code now, 1-based, that it stands after; 0 for the front
  std::string renamed;     ///< its text without line end when its member has a new name, else empty

  bool operator==(const PlacedHiddenLine&) const = default;
};

struct HiddenPlacement {
  std::vector<PlacedHiddenLine> placed;  ///< ascending by `after`, then by `index`
  std::vector<std::size_t> dropped;      ///< ascending; their declaration is gone
};

/// Finds the places of all hidden lines of `baseline` in the code `lines`. `canonical` is the code of `baseline` in the
/// spelling of `lines`, one for each of its lines; `hunks` stand between those two.
HiddenPlacement PlaceHiddenLines(const SourceFile& baseline, const std::vector<std::string_view>& canonical,
                                 const std::vector<std::string_view>& lines, const std::vector<DiffHunk>& hunks);

}  // namespace quorvane::workbench
