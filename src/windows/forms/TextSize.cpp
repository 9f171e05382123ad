#include "windows/forms/TextSize.h"

#include "windows/forms/WideText.h"

namespace quorvane::windows {

SIZE SizeOfLine(HFONT font, std::u16string_view line) {
  const MeasuringContext context(font);
  SIZE size{};
  ::GetTextExtentPoint32W(context.Handle(), reinterpret_cast<const wchar_t*>(line.data()),
                          static_cast<int>(line.size()), &size);
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(context.Handle(), &metrics);
  size.cy = metrics.tmHeight;
  return size;
}

SIZE SizeOfCaption(HFONT font, std::u16string_view caption) {
  std::u16string shown;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && i + 1 < caption.size()) ++i;
    shown += caption[i];
  }
  return SizeOfLine(font, shown);
}

SIZE SizeOfWrapped(HFONT font, const std::u16string& text, int width) {
  const MeasuringContext context(font);
  RECT box{0, 0, width, 0};
  ::DrawTextW(context.Handle(), Wide(text), static_cast<int>(text.size()), &box,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  return {box.right, box.bottom};
}

DialogUnits::DialogUnits(HFONT font) {
  constexpr std::u16string_view kLetters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const SIZE size = SizeOfLine(font, kLetters);
  width_ = static_cast<int>(size.cx + 26) / 52;
  height_ = static_cast<int>(size.cy);
}

}  // namespace quorvane::windows
