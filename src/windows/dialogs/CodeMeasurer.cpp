#include "windows/dialogs/CodeMeasurer.h"

#include <algorithm>

#include "windows/forms/CodeFont.h"
#include "windows/forms/TextSize.h"

namespace quorvane::windows {

namespace {

constexpr int kTabColumns = 4;

int Advance(HDC context, std::u16string_view text) {
  SIZE size{};
  ::GetTextExtentPoint32W(context, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()), &size);
  return size.cx;
}

}  // namespace

int CodeMeasurer::ForEachPart(HDC context, std::u16string_view text, int x, const Take& take) {
  const int stop = std::max(Advance(context, u" ") * kTabColumns, 1);
  for (;;) {
    const std::size_t tab = text.find(u'\t');
    const std::u16string_view part = text.substr(0, tab);
    take(x, part);
    x += Advance(context, part);
    if (tab == text.npos) return x;
    x = (x / stop + 1) * stop;
    text.remove_prefix(tab + 1);
  }
}

int CodeMeasurer::HeightOfLine(HDC context) {
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(context, &metrics);
  return static_cast<int>(metrics.tmHeight + metrics.tmExternalLeading);
}

std::int32_t CodeMeasurer::LineHeight(const forms::Font& font) const {
  const MeasuringContext context(HandleFor(font));
  return HeightOfLine(context.Handle());
}

std::int32_t CodeMeasurer::LineWidth(const forms::Font& font, std::u16string_view line) const {
  const MeasuringContext context(HandleFor(font));
  return ForEachPart(context.Handle(), line, 0, [](int, std::u16string_view) {});
}

/// One font is asked for line by line.
HFONT CodeMeasurer::HandleFor(const forms::Font& font) const {
  if (!made_ || !(font == font_)) {
    made_ = CodeFont(font);
    font_ = font;
  }
  return made_.Get();
}

}  // namespace quorvane::windows
