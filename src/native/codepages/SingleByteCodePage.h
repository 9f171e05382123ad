#pragma once

#include <array>
#include <memory>

#include "platform/CodePage.h"

namespace quorvane::native {

/// A code page of one byte a character. Bytes 0x80 to 0x9F without a character stand for the control character of the
/// same number, as on the platform.
class SingleByteCodePage : public CodePage {
 public:
  /// `page` is the number of the page. Raises error 5 when the system lacks it.
  SingleByteCodePage(std::string name, int page);

  std::string Name() const override { return name_; }
  void Decode(std::string_view bytes, std::u16string& out) const override;
  bool Encode(std::u16string_view text, std::string& out, std::size_t& failedAt) const override;
  bool AsciiTrailBytes() const override { return false; }

 protected:
  bool IsWideBeyondAscii(char16_t) const override { return false; }

 private:
  std::string name_;
  std::array<char16_t, 256> units_{};
  std::array<unsigned char, 65536> bytes_{};  ///< 0: the page lacks the unit (U+0000 is ASCII and never looked up)
};

}  // namespace quorvane::native
