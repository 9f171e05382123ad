#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quorvane::native {

/// How many bytes of `bytes` from `at` on are ASCII without a gap.
inline std::size_t AsciiRun(std::string_view bytes, std::size_t at) {
  std::size_t i = at;
  for (; i + 8 <= bytes.size(); i += 8) {
    std::uint64_t block;
    std::memcpy(&block, bytes.data() + i, 8);
    if ((block & 0x8080808080808080U) != 0) break;
  }
  while (i < bytes.size() && static_cast<unsigned char>(bytes[i]) < 0x80) ++i;
  return i - at;
}

/// The same for units.
inline std::size_t AsciiRun(std::u16string_view text, std::size_t at) {
  std::size_t i = at;
  for (; i + 4 <= text.size(); i += 4) {
    std::uint64_t block;
    std::memcpy(&block, text.data() + i, 8);
    if ((block & 0xFF80FF80FF80FF80U) != 0) break;
  }
  while (i < text.size() && text[i] < 0x80) ++i;
  return i - at;
}

/// Copies `count` ASCII characters to units and back. Room at `to` is the caller's.
inline void WidenAscii(const char* from, std::size_t count, char16_t* to) {
  for (std::size_t i = 0; i < count; ++i) to[i] = static_cast<unsigned char>(from[i]);
}
inline void NarrowAscii(const char16_t* from, std::size_t count, char* to) {
  for (std::size_t i = 0; i < count; ++i) to[i] = static_cast<char>(from[i]);
}

}  // namespace quorvane::native
