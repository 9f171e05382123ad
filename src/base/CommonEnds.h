#pragma once

#include <algorithm>
#include <cstddef>

namespace quorvane {

/// How many elements two sequences share at their beginning and, of what that leaves, at their end.
struct CommonEnds {
  std::size_t head = 0;
  std::size_t tail = 0;
};

/// Of two sequences with size() and operator[], such as texts or lists of lines.
template <class Left, class Right>
CommonEnds FindCommonEnds(const Left& left, const Right& right) {
  const std::size_t shorter = std::min(left.size(), right.size());
  CommonEnds common;
  while (common.head < shorter && left[common.head] == right[common.head]) ++common.head;
  while (common.tail < shorter - common.head &&
         left[left.size() - 1 - common.tail] == right[right.size() - 1 - common.tail]) {
    ++common.tail;
  }
  return common;
}

}  // namespace quorvane
