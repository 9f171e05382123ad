#include "desktop/files/ThreeWay.h"

#include <algorithm>
#include <limits>

#include "workbench/text/LineDiff.h"

namespace quorvane::desktop {

namespace {

using workbench::DiffHunk;

/// The units of a text as bytes, for a comparison that knows bytes alone.
std::vector<std::string_view> AsBytes(const TextLines& lines) {
  std::vector<std::string_view> bytes;
  bytes.reserve(lines.size());
  for (const std::u16string_view line : lines) {
    bytes.emplace_back(reinterpret_cast<const char*>(line.data()), line.size() * sizeof(char16_t));
  }
  return bytes;
}

/// The walk through the hunks from the opened text to one of the others.
class Side {
 public:
  Side(const TextLines& opened, const TextLines& other)
      : hunks_(workbench::DiffLines(AsBytes(opened), AsBytes(other))) {}

  /// Where the next hunk begins in the opened text; beyond all lines when there is none.
  std::int32_t Next() const {
    return next_ < hunks_.size() ? hunks_[next_].beforeBegin : std::numeric_limits<std::int32_t>::max();
  }
  /// Takes the next hunk; gives where it ends in the opened text.
  std::int32_t Take() {
    const DiffHunk& hunk = hunks_[next_++];
    shift_ = hunk.afterEnd - hunk.beforeEnd;
    return hunk.beforeEnd;
  }
  /// Where a line of the opened text stands in the other, outside of hunks.
  std::int32_t Of(std::int32_t line) const { return line + shift_; }

 private:
  std::vector<DiffHunk> hunks_;
  std::size_t next_ = 0;
  std::int32_t shift_ = 0;  ///< after the hunks that were taken
};

}  // namespace

std::vector<ThreeWayRow> AlignThree(const TextLines& opened, const TextLines& mine, const TextLines& theirs) {
  const auto count = static_cast<std::int32_t>(opened.size());
  Side left(opened, mine), right(opened, theirs);
  std::vector<ThreeWayRow> rows;
  for (std::int32_t line = 0;;) {
    const std::int32_t begin = std::min({left.Next(), right.Next(), count});
    for (; line < begin; ++line) rows.push_back({line, left.Of(line), right.Of(line), false, false});
    if (std::min(left.Next(), right.Next()) > count) return rows;
    const std::int32_t leftBegin = left.Of(begin), rightBegin = right.Of(begin);
    std::int32_t end = begin;
    bool mineDiffers = false, theirsDiffers = false;
    while (left.Next() <= end || right.Next() <= end) {  // hunks that touch are one place
      const bool isLeft = left.Next() <= end;
      (isLeft ? mineDiffers : theirsDiffers) = true;
      end = std::max(end, isLeft ? left.Take() : right.Take());
    }
    const std::int32_t lengths[] = {end - begin, left.Of(end) - leftBegin, right.Of(end) - rightBegin};
    const auto at = [](std::int32_t first, std::int32_t length, std::int32_t row) {
      return row < length ? first + row : -1;
    };
    for (std::int32_t row = 0; row < *std::ranges::max_element(lengths); ++row) {
      rows.push_back({at(begin, lengths[0], row), at(leftBegin, lengths[1], row), at(rightBegin, lengths[2], row),
                      mineDiffers, theirsDiffers});
    }
    line = end;
  }
}

}  // namespace quorvane::desktop
