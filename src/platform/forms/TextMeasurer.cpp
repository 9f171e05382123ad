#include "platform/forms/TextMeasurer.h"

#include <algorithm>

#include "base/Checked.h"

namespace quorvane::forms {

namespace {

constexpr std::int32_t kCellWidth = 6;
constexpr std::int32_t kCellHeight = 12;

template <class Take>
void ForEachLine(std::u16string_view text, Take take) {
  for (;;) {
    const std::size_t end = text.find_first_of(u"\r\n");
    take(text.substr(0, end));
    if (end == text.npos) return;
    text.remove_prefix(end + (text.substr(end).starts_with(u"\r\n") ? 2 : 1));
  }
}

}  // namespace

std::int32_t TextMeasurer::LineHeight(const Font&) const {
  return kCellHeight;
}

std::int32_t TextMeasurer::LineWidth(const Font&, std::u16string_view line) const {
  return Checked32(static_cast<std::int64_t>(line.size()) * kCellWidth);
}

std::int32_t TextMeasurer::TextHeight(const Font& font, std::u16string_view text) const {
  std::int64_t lines = 0;
  ForEachLine(text, [&](std::u16string_view) { ++lines; });
  return Checked32(lines * LineHeight(font));
}

std::int32_t TextMeasurer::TextWidth(const Font& font, std::u16string_view text) const {
  std::int32_t widest = 0;
  ForEachLine(text, [&](std::u16string_view line) { widest = std::max(widest, LineWidth(font, line)); });
  return widest;
}

}  // namespace quorvane::forms
