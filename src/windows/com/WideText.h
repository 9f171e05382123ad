#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "windows/com/Win32.h"

namespace quorvane::com {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Windows' wide characters are UTF-16 units");

/// The same units under Windows' own type. What is given must end in a NUL, as a string's text does; the pointer lives
/// as long as `text` is unchanged.
inline const wchar_t* Wide(const char16_t* text) {
  return reinterpret_cast<const wchar_t*>(text);
}
inline const wchar_t* Wide(const std::u16string& text) {
  return Wide(text.c_str());
}
inline wchar_t* Wide(char16_t* buffer) {
  return reinterpret_cast<wchar_t*>(buffer);
}

inline const char16_t* Utf16(const wchar_t* text) {
  return reinterpret_cast<const char16_t*>(text);
}
/// Up to the NUL; nothing gives the empty text.
inline std::u16string FromWide(const wchar_t* text) {
  return text != nullptr ? std::u16string(Utf16(text)) : std::u16string();
}
inline std::u16string FromWide(const wchar_t* text, std::size_t length) {
  return std::u16string(Utf16(text), length);
}

}  // namespace quorvane::com
