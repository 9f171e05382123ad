#pragma once

#include "platform/CodePage.h"

namespace quorvane::native {

/// UTF-8 as a code page. Decoding is strict: each byte of a malformed sequence is a byte that cannot be decoded.
class Utf8CodePage : public CodePage {
 public:
  std::string Name() const override { return "UTF-8"; }
  void Decode(std::string_view bytes, std::u16string& out) const override;
  bool Encode(std::u16string_view text, std::string& out, std::size_t& failedAt) const override;
  bool AsciiTrailBytes() const override { return false; }

 protected:
  bool IsWideBeyondAscii(char16_t c) const override;
};

}  // namespace quorvane::native
