#pragma once

#include <memory>

#include "platform/CodePage.h"

namespace quorvane::native {

struct DoubleByteTables;

/// A code page of one or two bytes a character: 932, 936, 949, 950. A lead byte without a valid second byte is a byte
/// that cannot be decoded; what follows it is read on its own.
class DoubleByteCodePage : public CodePage {
 public:
  enum class Page { Japanese = 932, SimplifiedChinese = 936, Korean = 949, TraditionalChinese = 950 };

  explicit DoubleByteCodePage(Page page) : mePage(page) {}

  std::string Name() const override { return std::to_string(static_cast<int>(mePage)); }
  void Decode(std::string_view bytes, std::u16string& out) const override;
  bool Encode(std::u16string_view text, std::string& out, std::size_t& failedAt) const override;
  bool AsciiTrailBytes() const override { return true; }

 protected:
  bool IsWideBeyondAscii(char16_t c) const override;

 private:
  /// Built when the first character beyond ASCII turns up; shared by all objects of one page.
  const DoubleByteTables& Tables() const;

  Page mePage;
  mutable std::shared_ptr<const DoubleByteTables> tables_;
};

}  // namespace quorvane::native
