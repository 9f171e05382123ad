#include "workbench/text/LineBuffer.h"

#include <algorithm>

namespace quorvane::workbench {

void LineBuffer::Replace(std::size_t index, std::size_t removed, const LineRecord* inserted, std::size_t count) {
  MoveGap(index);
  gapEnd_ += removed;
  if (gapEnd_ - gapBegin_ < count) Grow(count);
  std::copy_n(inserted, count, slots_.begin() + static_cast<std::ptrdiff_t>(gapBegin_));
  gapBegin_ += count;
}

void LineBuffer::MoveGap(std::size_t index) {
  const auto at = [this](std::size_t slot) { return slots_.begin() + static_cast<std::ptrdiff_t>(slot); };
  if (index < gapBegin_) {
    std::move_backward(at(index), at(gapBegin_), at(gapEnd_));
    gapEnd_ -= gapBegin_ - index;
  } else {
    const std::size_t count = index - gapBegin_;
    std::move(at(gapEnd_), at(gapEnd_ + count), at(gapBegin_));
    gapEnd_ += count;
  }
  gapBegin_ = index;
}

void LineBuffer::Grow(std::size_t needed) {
  const std::size_t gap = std::max(needed, slots_.size() / 2 + 16);
  const std::size_t added = gap - (gapEnd_ - gapBegin_);
  slots_.insert(slots_.begin() + static_cast<std::ptrdiff_t>(gapEnd_), added, LineRecord{});
  gapEnd_ += added;
}

}  // namespace quorvane::workbench
