#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quorvane::workbench {

/// One line of a module: a span of bytes of the opened file, or a place in the store of typed text.
struct LineRecord {
  static constexpr std::uint32_t kTyped = 0x80000000U;

  std::uint32_t begin = 0;  ///< byte offset; or kTyped + offset in UTF-16 units
  std::uint32_t length = 0;

  bool IsSpan() const { return (begin & kTyped) == 0; }
  bool operator==(const LineRecord&) const = default;
};

/// A gap buffer of line records: an edit near the one before costs what it changes, wherever in the module it is.
class LineBuffer {
 public:
  LineBuffer() = default;
  explicit LineBuffer(std::vector<LineRecord> records)
      : slots_(std::move(records)), gapBegin_(slots_.size()), gapEnd_(slots_.size()) {}

  std::size_t Size() const { return slots_.size() - (gapEnd_ - gapBegin_); }
  const LineRecord& operator[](std::size_t index) const {
    return slots_[index < gapBegin_ ? index : index + (gapEnd_ - gapBegin_)];
  }

  /// Puts `count` records in the place of [index, index + removed), which exist.
  void Replace(std::size_t index, std::size_t removed, const LineRecord* inserted, std::size_t count);

 private:
  void MoveGap(std::size_t index);
  void Grow(std::size_t needed);

  std::vector<LineRecord> slots_;  ///< [gapBegin_, gapEnd_) holds nothing
  std::size_t gapBegin_ = 0;
  std::size_t gapEnd_ = 0;
};

}  // namespace quorvane::workbench
