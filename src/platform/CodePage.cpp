#include "platform/CodePage.h"

namespace quorvane {

std::optional<std::string> CodePage::Encoded(std::u16string_view text) const {
  std::string bytes;
  std::size_t failedAt = 0;
  if (!Encode(text, bytes, failedAt)) return std::nullopt;
  return bytes;
}

std::string CodePage::EncodedOrAsked(std::u16string_view text) const {
  std::string bytes;
  std::size_t failedAt = 0;
  while (!Encode(text, bytes, failedAt)) {
    bytes += '?';
    text.remove_prefix(failedAt + 1);
  }
  return bytes;
}

}  // namespace quorvane
