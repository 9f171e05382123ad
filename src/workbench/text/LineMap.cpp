#include "workbench/text/LineMap.h"

#include <cstddef>

namespace quorvane::workbench {

LineMap::LineMap(const std::vector<DiffHunk>& hunks, std::size_t beforeCount, std::size_t afterCount)
    : hunks_(hunks), partner_(beforeCount, -1), hunkBefore_(beforeCount, -1), hunkAfter_(afterCount, -1) {
  std::int32_t before = 0, after = 0;
  const auto pairUpTo = [&](std::int32_t end) {
    while (before < end) partner_[static_cast<std::size_t>(before++)] = after++;
  };
  for (std::size_t i = 0; i < hunks.size(); ++i) {
    const DiffHunk& hunk = hunks[i];
    pairUpTo(hunk.beforeBegin);
    while (before < hunk.beforeEnd) hunkBefore_[static_cast<std::size_t>(before++)] = static_cast<std::int32_t>(i);
    while (after < hunk.afterEnd) hunkAfter_[static_cast<std::size_t>(after++)] = static_cast<std::int32_t>(i);
  }
  pairUpTo(static_cast<std::int32_t>(beforeCount));
}

std::int32_t LineMap::Successor(std::int32_t before) const {
  const std::int32_t index = hunkBefore_[static_cast<std::size_t>(before)];
  if (index < 0) return Partner(before);
  const DiffHunk& hunk = Hunk(index);
  const std::int32_t after = hunk.afterBegin + (before - hunk.beforeBegin);
  return after < hunk.afterEnd ? after : -1;
}

std::int32_t LineMap::Touching(const std::vector<std::int32_t>& hunkOf, std::int32_t first, std::int32_t last) {
  for (std::int32_t line = first; line <= last; ++line) {
    const std::int32_t hunk = hunkOf[static_cast<std::size_t>(line)];
    if (hunk >= 0) return hunk;
  }
  return -1;
}

}  // namespace quorvane::workbench
