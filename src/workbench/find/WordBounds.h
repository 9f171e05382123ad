#pragma once

#include <cstddef>
#include <string_view>

#include "workbench/text/CaseFold.h"

namespace quorvane::workbench {

/// A whole word may begin (end) at `at` when what stands before (after) it is no part of a word.
inline bool WordMayBegin(std::u16string_view line, std::size_t at) {
  return at == 0 || !IsWordUnit(line[at - 1]);
}
inline bool WordMayEnd(std::u16string_view line, std::size_t at) {
  return at == line.size() || !IsWordUnit(line[at]);
}

}  // namespace quorvane::workbench
