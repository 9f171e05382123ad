#include "windows/forms/GdiCanvas.h"

#include <algorithm>
#include <string>
#include <utility>

#include "windows/forms/Fonts.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

/// The window system draws and measures no more characters at once.
constexpr std::size_t kPiece = 4096;

struct GdiFont final : CanvasFont {
  explicit GdiFont(FontHandle made) : font(std::move(made)) {}
  FontHandle font;
};

/// The canvas' text is plain: a control character is a blank.
std::u16string PlainLine(std::u16string_view text) {
  std::u16string line(text);
  for (char16_t& c : line) {
    if (c < u' ' || c == u'\u2028' || c == u'\u2029') c = u' ';
  }
  return line;
}

template <class Take>
void ForEachPiece(const std::u16string& line, Take take) {
  for (std::size_t at = 0; at < line.size();) {
    std::size_t length = std::min(kPiece, line.size() - at);
    const bool split = at + length < line.size() && (line[at + length] & 0xFC00) == 0xDC00;
    if (split) --length;
    take(line.data() + at, static_cast<int>(length));
    at += length;
  }
}

RECT ToRect(const CanvasRect& rect) {
  return {rect.Left, rect.Top, rect.Right, rect.Bottom};
}

int WidthOf(HDC dc, const char16_t* piece, int length) {
  SIZE size{};
  ::GetTextExtentPoint32W(dc, Wide(piece), length, &size);
  return size.cx;
}

}  // namespace

GdiCanvas::GdiCanvas(HDC dc, HFONT ownFont)
    : dc_(dc), ownFont_(ownFont != nullptr ? ownFont : DialogFont()), before_(::SelectObject(dc, ownFont_)) {
  ::SetBkMode(dc_, 2);  // opaque
  ::SetTextAlign(dc_, TA_LEFT | TA_TOP | TA_NOUPDATECP);
}

GdiCanvas::~GdiCanvas() {
  ::SelectObject(dc_, before_);
}

std::int32_t GdiCanvas::LogPixelsY() const {
  return ::GetDeviceCaps(dc_, LOGPIXELSY);
}

std::shared_ptr<CanvasFont> GdiCanvas::CreateFont(const LogFont& font) {
  return std::make_shared<GdiFont>(MakeFont(font));
}

std::shared_ptr<CanvasFont> GdiCanvas::SelectFont(std::shared_ptr<CanvasFont> font) {
  const auto* selected = dynamic_cast<const GdiFont*>(font.get());
  ::SelectObject(dc_, selected != nullptr ? selected->font.Get() : ownFont_);
  return std::exchange(font_, std::move(font));
}

void GdiCanvas::SetTextColor(Color color) {
  textColor_ = color;
}

void GdiCanvas::SetBkColor(Color color) {
  background_ = color;
}

void GdiCanvas::FillRect(const CanvasRect& rect, Color color) {
  const RECT area = ToRect(rect);
  ::SetBkColor(dc_, color);
  ::ExtTextOutW(dc_, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

void GdiCanvas::TextOut(std::int32_t x, std::int32_t y, std::u16string_view text) {
  ::SetTextColor(dc_, textColor_);
  ::SetBkColor(dc_, background_);
  ForEachPiece(PlainLine(text), [&](const char16_t* piece, int length) {
    ::ExtTextOutW(dc_, x, y, 0, nullptr, Wide(piece), static_cast<UINT>(length), nullptr);
    x += WidthOf(dc_, piece, length);
  });
}

std::int32_t GdiCanvas::TextWidth(std::u16string_view text) {
  std::int32_t width = 0;
  ForEachPiece(PlainLine(text), [&](const char16_t* piece, int length) { width += WidthOf(dc_, piece, length); });
  return width;
}

/// It inverts what lies there, by the colours of the moment.
void GdiCanvas::DrawFocusRect(const CanvasRect& rect) {
  const RECT area = ToRect(rect);
  ::SetTextColor(dc_, 0x000000);
  ::SetBkColor(dc_, 0xFFFFFF);
  ::DrawFocusRect(dc_, &area);
}

}  // namespace quorvane::windows
