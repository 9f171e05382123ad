#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quorvane {

/// Where a match lies in a result line. A line is made by the stylesheet, so its layout is not known: the source line
/// is found in it by plain comparison.
struct ResultLineParts {
  std::int16_t pos = 0;       ///< number of characters before the source line
  std::int16_t startPos = 1;  ///< 1-based, first character of the match
  std::int16_t endPos = 1;    ///< 1-based, just after the match; may lie after the end of the text

  /// The four pieces of `text`, in order; each may be empty, and together they are the text.
  std::u16string_view Prefix(std::u16string_view text) const;
  std::u16string_view BeforeMatch(std::u16string_view text) const;
  std::u16string_view Match(std::u16string_view text) const;
  std::u16string_view Rest(std::u16string_view text) const;

  bool operator==(const ResultLineParts&) const = default;
};

/// Finds the last occurrence of `sourceLine` in `text`; no value when there is none. `start` and `end` are the 1-based
/// places of the match in the source line, the end exclusive. A place above 32767 raises error 6.
std::optional<ResultLineParts> FindMatchInResultLine(std::u16string_view text, std::u16string_view sourceLine,
                                                     std::int32_t start, std::int32_t end);

}  // namespace quorvane
