#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// Text is UTF-16; a character is one unit. Lines of a module are joined by this.
inline constexpr std::u16string_view kCrLf = u"\r\n";

/// UTF-8 for the edges of the program. A lone surrogate becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);
/// Appends to `out` what ToUtf8 gives.
void AppendUtf8(std::u16string_view text, std::string& out);

/// The opposite; each byte that is no UTF-8 becomes U+FFFD.
std::u16string FromUtf8(std::string_view utf8);

/// Plain decimal, with a minus sign when negative.
std::u16string ToText(std::int64_t number);

/// ASCII letters alone are folded; all other units stay.
constexpr char16_t ToLowerAscii(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}
bool EqualsNoCaseAscii(std::u16string_view a, std::u16string_view b);

/// `text` with every occurrence of `from`, which is not empty, replaced by `to`, left to right, not rescanned.
std::u16string ReplaceAll(std::u16string_view text, std::u16string_view from, std::u16string_view to);

/// The pieces between the occurrences of `separator`, which is not empty; one more than there are occurrences.
std::vector<std::u16string_view> Split(std::u16string_view text, std::u16string_view separator);

/// Without the blanks (U+0020 alone) at both ends.
std::u16string_view TrimBlanks(std::u16string_view text);

/// Whether all units lie below U+0080.
inline bool IsAscii(std::u16string_view text) {
  unsigned any = 0;
  for (const char16_t c : text) any |= c;
  return any < 0x80;
}

/// Units that are the first or the second half of a character outside the basic plane.
constexpr bool IsHighSurrogate(char16_t c) {
  return (c & 0xFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char16_t c) {
  return (c & 0xFC00) == 0xDC00;
}

}  // namespace quorvane
