// The system answers bytes without a character by ones of its own: a control character below A0, which the tables want
// as well, and a character of private use above, which it invents. Where whole rows of two bytes are set aside for
// characters that users make, those are characters.
#include "native/codepages/Charset.h"

#include <windows.h>

#include <array>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::native {

struct Charset::Converters {
  UINT Page;
};

namespace {

bool IsPrivate(wchar_t unit) {
  return unit >= 0xE000 && unit <= 0xF8FF;
}

}  // namespace

Charset::Charset(int page) : converters_(new Converters{static_cast<UINT>(page)}) {
  if (IsValidCodePage(converters_->Page) != 0) return;
  RaiseError(ErrorNumber::InvalidProcedureCall, u"This system lacks the code page " + FromUtf8(std::to_string(page)));
}

Charset::~Charset() = default;

std::optional<char16_t> Charset::Decode(std::string_view bytes) const {
  std::array<wchar_t, 4> units{};
  const int count = MultiByteToWideChar(converters_->Page, MB_ERR_INVALID_CHARS, bytes.data(),
                                        static_cast<int>(bytes.size()), units.data(), static_cast<int>(units.size()));
  if (count != 1 || (bytes.size() == 1 && IsPrivate(units[0]))) return {};
  return static_cast<char16_t>(units[0]);
}

std::string Charset::Encode(char16_t unit) const {
  const auto wide = static_cast<wchar_t>(unit);
  std::array<char, 8> bytes{};
  BOOL lacking = FALSE;
  const int count = WideCharToMultiByte(converters_->Page, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes.data(),
                                        static_cast<int>(bytes.size()), nullptr, &lacking);
  if (count <= 0 || lacking != FALSE) return {};
  return {bytes.data(), static_cast<std::size_t>(count)};
}

}  // namespace quorvane::native
