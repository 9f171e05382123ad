#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane::windows {

// Text of ours and of the window system: the same UTF-16 units in two types of one size.
static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// Ends at the first zero; good for as long as `text` is.
inline const wchar_t* Wide(const std::u16string& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline const wchar_t* Wide(const char16_t* text) {
  return reinterpret_cast<const wchar_t*>(text);
}

inline std::u16string FromWide(std::wstring_view text) {
  return {text.begin(), text.end()};
}
inline std::u16string FromWide(const wchar_t* text, std::size_t length) {
  return FromWide(std::wstring_view(text, length));
}

}  // namespace quorvane::windows
