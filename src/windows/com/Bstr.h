#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "base/Error.h"
#include "windows/com/WideText.h"

namespace quorvane::com {

/// Owns one text of the automation kind. It may hold NULs.
class Bstr {
 public:
  Bstr() = default;
  /// Raises error 7 when there is no memory. The empty text, too, is a text of its own, not nothing.
  explicit Bstr(std::u16string_view text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()) / sizeof(char16_t)) {
      RaiseError(ErrorNumber::OutOfMemory);
    }
    text_ = SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()));
    if (text_ == nullptr) RaiseError(ErrorNumber::OutOfMemory);
  }
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  ~Bstr() { SysFreeString(text_); }

  BSTR Get() const { return text_; }
  [[nodiscard]] BSTR Detach() { return std::exchange(text_, nullptr); }
  BSTR* Put() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }

  std::u16string Text() const { return TextOf(text_); }
  /// Nothing gives the empty text.
  static std::u16string TextOf(BSTR text) {
    return text != nullptr ? FromWide(text, SysStringLen(text)) : std::u16string();
  }

 private:
  BSTR text_ = nullptr;
};

}  // namespace quorvane::com
