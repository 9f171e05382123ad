#pragma once

#include <cstdint>

namespace quorvane {

namespace vbide {
class CodeModule;
}  // namespace vbide

/// Whether a comment mark stands before character `x2` (1-based, exclusive) of line `y2`, on the lines from `y1` on or
/// on the continued lines above them. Raises error 5 for `x2` below 1.
bool HasCommentBefore(vbide::CodeModule& code, std::int32_t y1, std::int32_t y2, std::int32_t x2);

}  // namespace quorvane
