#include "native/codepages/SingleByteCodePage.h"

#include <utility>

#include "native/codepages/AsciiRun.h"
#include "native/codepages/ByteEscape.h"
#include "native/codepages/Charset.h"
#include "native/codepages/EncodeLoop.h"

namespace quorvane::native {

SingleByteCodePage::SingleByteCodePage(std::string name, int page) : name_(std::move(name)) {
  const Charset charset(page);
  for (unsigned b = 0; b < 256; ++b) {
    const char byte = static_cast<char>(b);
    const char16_t missing = b < 0xA0 ? static_cast<char16_t>(b) : EscapedByte(static_cast<unsigned char>(b));
    const char16_t unit = b < 0x80 ? static_cast<char16_t>(b) : charset.Decode({&byte, 1}).value_or(missing);
    units_[b] = unit;
    if (bytes_[unit] == 0) bytes_[unit] = static_cast<unsigned char>(b);
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
      to[i] = units_[static_cast<unsigned char>(bytes[i])];
    }
  }
}

bool SingleByteCodePage::Encode(std::u16string_view text, std::string& out, std::size_t& failedAt) const {
  return EncodeText(text, 1, out, failedAt, [this](std::u16string_view from, std::size_t& i, char*& to) {
    const unsigned char byte = bytes_[from[i]];
    if (byte == 0) return false;
    *to++ = static_cast<char>(byte);
    ++i;
    return true;
  });
}

}  // namespace quorvane::native
