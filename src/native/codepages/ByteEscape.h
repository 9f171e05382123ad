#pragma once

namespace quorvane::native {

/// A byte that a code page cannot decode stands in the text as the lone low surrogate U+DC00 + byte, so that it is
/// written back as it was read.
constexpr char16_t EscapedByte(unsigned char byte) {
  return static_cast<char16_t>(0xDC00 + byte);
}
constexpr bool IsEscapedByte(char16_t c) {
  return c >= 0xDC80 && c <= 0xDCFF;
}
constexpr unsigned char UnescapedByte(char16_t c) {
  return static_cast<unsigned char>(c - 0xDC00);
}

}  // namespace quorvane::native
