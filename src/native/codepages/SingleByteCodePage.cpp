#include "native/codepages/SingleByteCodePage.h"

#include <utility>

#include "native/codepages/AsciiRun.h"
#include "native/codepages/ByteEscape.h"
#include "native/codepages/Charset.h"

namespace quorvane::native {

SingleByteCodePage::SingleByteCodePage(std::string name, int page) : mstrName(std::move(name)) {
  const Charset charset(page);
  for (unsigned b = 0; b < 256; ++b) {
    const char byte = static_cast<char>(b);
    const char16_t missing = b < 0xA0 ? static_cast<char16_t>(b) : EscapedByte(static_cast<unsigned char>(b));
    const char16_t unit = b < 0x80 ? static_cast<char16_t>(b) : charset.Decode({&byte, 1}).value_or(missing);
    marrUnits[b] = unit;
    if (marrBytes[unit] == 0) marrBytes[unit] = static_cast<unsigned char>(b);
  }
}

void SingleByteCodePage::Decode(std::string_view bytes, std::u16string& out) const {
  const std::size_t begin = out.size();
  out.resize(begin + bytes.size());
  char16_t* to = out.data() + begin;
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t run = AsciiRun(bytes, i);
    WidenAscii(bytes.data() + i, run, to + i);
    i += run;
    for (; i < bytes.size() && static_cast<unsigned char>(bytes[i]) >= 0x80; ++i) {
      to[i] = marrUnits[static_cast<unsigned char>(bytes[i])];
    }
  }
}

bool SingleByteCodePage::Encode(std::u16string_view text, std::string& out, std::size_t& failedAt) const {
  const std::size_t begin = out.size();
  out.resize(begin + text.size());
  char* to = out.data() + begin;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t run = AsciiRun(text, i);
    NarrowAscii(text.data() + i, run, to + i);
    i += run;
    for (; i < text.size() && text[i] >= 0x80; ++i) {
      to[i] = static_cast<char>(marrBytes[text[i]]);
      if (to[i] != 0) continue;
      out.resize(begin + i);
      failedAt = i;
      return false;
    }
  }
  return true;
}

}  // namespace quorvane::native
