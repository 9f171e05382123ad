#include "addin/results/ResultLineParts.h"

#include <algorithm>

#include "base/Checked.h"

namespace quorvane {

namespace {

/// The characters of 1-based places [from, to), as far as they exist.
std::u16string_view Piece(std::u16string_view text, std::int32_t from, std::int32_t to) {
  const auto begin = std::min(text.size(), static_cast<std::size_t>(std::max(from, 1) - 1));
  const auto end = std::min(text.size(), static_cast<std::size_t>(std::max(to, 1) - 1));
  return text.substr(begin, end < begin ? 0 : end - begin);
}

}  // namespace

std::u16string_view ResultLineParts::Prefix(std::u16string_view text) const {
  return Piece(text, 1, pos + 1);
}

std::u16string_view ResultLineParts::BeforeMatch(std::u16string_view text) const {
  return Piece(text, pos + 1, startPos);
}

std::u16string_view ResultLineParts::Match(std::u16string_view text) const {
  return Piece(text, startPos, endPos);
}

std::u16string_view ResultLineParts::Rest(std::u16string_view text) const {
  return text.substr(std::min(text.size(), static_cast<std::size_t>(std::max<int>(endPos, 1) - 1)));
}

std::optional<ResultLineParts> FindMatchInResultLine(std::u16string_view text, std::u16string_view sourceLine,
                                                     std::int32_t start, std::int32_t end) {
  const std::size_t at = text.rfind(sourceLine);
  if (at == text.npos) return std::nullopt;
  const auto pos = static_cast<std::int64_t>(at);
  return ResultLineParts{Checked16(pos), Checked16(pos + start), Checked16(pos + end)};
}

}  // namespace quorvane
