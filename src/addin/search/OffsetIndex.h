#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace quorvane {

namespace vbide {
class CodeModule;
}

/// A place in a module: line and character index, both 1-based.
struct TextPlace {
  std::int32_t Y = 1;
  std::int32_t X = 1;

  bool operator==(const TextPlace&) const = default;
};

/// Turns offsets into the text that begins at a base line into lines and characters.
///
/// It remembers where the line feeds of that text are, so that many offsets cost one reading. The memory is keyed by
/// module, base line and the module's revision: Locate never answers from a text that is no longer there.
class OffsetIndex {
 public:
  /// The place of the 1-based offset `pos` in the text from line `baseLine` to the module's end. An offset on the LF of
  /// a line end belongs to the line before; one after the text counts on from the last line. A negative one raises
  /// error 5.
  TextPlace Locate(const vbide::CodeModule& code, std::int32_t baseLine, std::int32_t pos);

 private:
  void Read(const vbide::CodeModule& code, std::int32_t baseLine);

  std::vector<std::int32_t> lineFeeds_;  ///< 1-based offsets, ascending
  const vbide::CodeModule* code_ = nullptr;
  std::int32_t baseLine_ = 0;
  std::uint64_t revision_ = 0;  ///< 0: nothing is remembered
};

}  // namespace quorvane
