#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "native/codepages/AsciiRun.h"

namespace quorvane::native {

/// CodePage::Encode for a page whose characters take `mostBytes` bytes a unit at most: runs of ASCII are copied, and
/// `encode(text, i, to)` writes the bytes of the character at `i` to `to` and moves both on; false when the page lacks
/// it, with nothing moved.
template <class EncodeOne>
bool EncodeText(std::u16string_view text, std::size_t mostBytes, std::string& out, std::size_t& failedAt,
                EncodeOne encode) {
  const std::size_t begin = out.size();
  out.resize(begin + text.size() * mostBytes);
  char* to = out.data() + begin;
  bool known = true;
  std::size_t i = 0;
  while (known && i < text.size()) {
    const std::size_t run = AsciiRun(text, i);
    NarrowAscii(text.data() + i, run, to);
    to += run;
    i += run;
    while (known && i < text.size() && text[i] >= 0x80) known = encode(text, i, to);
  }
  if (!known) failedAt = i;
  out.resize(static_cast<std::size_t>(to - out.data()));
  return known;
}

}  // namespace quorvane::native
