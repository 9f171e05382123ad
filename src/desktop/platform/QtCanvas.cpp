#include "desktop/platform/QtCanvas.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPaintDevice>
#include <QPainter>
#include <QPen>
#include <cmath>
#include <utility>

#include "desktop/platform/QtColor.h"
#include "desktop/platform/QtText.h"

namespace quorvane::desktop {

namespace {

// The window system's colours as they are named to the logic.
constexpr Color kWindow = 0xFFFFFF;
constexpr Color kWindowText = 0x000000;
constexpr Color kHighlight = 0xD77800;
constexpr Color kHighlightText = 0xFFFFFF;

constexpr double kReadable = 0.4;

struct QtFont final : CanvasFont {
  explicit QtFont(QFont made) : font(std::move(made)) {}
  QFont font;
};

double Brightness(const QColor& color) {
  return 0.299 * color.redF() + 0.587 * color.greenF() + 0.114 * color.blueF();
}

/// The canvas' text is plain: a control character is a blank.
QString PlainLine(std::u16string_view text) {
  QString line = ToQString(text);
  for (QChar& c : line) {
    if (c < QChar(u' ') || c == QChar(u'\u2028') || c == QChar(u'\u2029')) c = QChar(u' ');
  }
  return line;
}

QRect ToQRect(const CanvasRect& rect) {
  return {rect.Left, rect.Top, rect.Right - rect.Left, rect.Bottom - rect.Top};
}

}  // namespace

QtCanvas::QtCanvas(QPainter& painter, QPalette palette)
    : painter_(painter),
      palette_(std::move(palette)),
      ownFont_(painter.font()),
      background_(palette_.color(QPalette::Base)) {}

QColor QtCanvas::Surface(Color color) const {
  if (color == kWindow) return palette_.color(QPalette::Base);
  if (color == kHighlight) return palette_.color(QPalette::Highlight);
  return ToQColor(color);
}

QColor QtCanvas::Ink(Color color) const {
  if (color == kWindowText) return palette_.color(QPalette::Text);
  if (color == kHighlightText) return palette_.color(QPalette::HighlightedText);
  const QColor wanted = ToQColor(color);
  if (std::abs(Brightness(wanted) - Brightness(background_)) >= kReadable) return wanted;
  const float lightness = Brightness(background_) < 0.5 ? 0.72F : 0.28F;
  return QColor::fromHslF(wanted.hslHueF(), wanted.hslSaturationF() / 2, lightness);
}

std::int32_t QtCanvas::LogPixelsY() const {
  return painter_.device()->logicalDpiY();
}

std::shared_ptr<CanvasFont> QtCanvas::CreateFont(const LogFont& font) {
  QFont made(ownFont_);
  if (!font.FaceName.empty()) made.setFamily(ToQString(font.FaceName));
  if (font.Height != 0) made.setPixelSize(std::abs(font.Height));
  made.setBold(font.Weight >= 600);
  made.setItalic(font.Italic);
  made.setUnderline(font.Underline);
  made.setStrikeOut(font.StrikeOut);
  return std::make_shared<QtFont>(std::move(made));
}

std::shared_ptr<CanvasFont> QtCanvas::SelectFont(std::shared_ptr<CanvasFont> font) {
  const auto* selected = dynamic_cast<const QtFont*>(font.get());
  painter_.setFont(selected != nullptr ? selected->font : ownFont_);
  return std::exchange(font_, std::move(font));
}

void QtCanvas::SetTextColor(Color color) {
  textColor_ = color;
}

void QtCanvas::SetBkColor(Color color) {
  background_ = Surface(color);
}

void QtCanvas::FillRect(const CanvasRect& rect, Color color) {
  painter_.fillRect(ToQRect(rect), Surface(color));
}

void QtCanvas::TextOut(std::int32_t x, std::int32_t y, std::u16string_view text) {
  const QString line = PlainLine(text);
  const QFontMetrics metrics = painter_.fontMetrics();
  painter_.fillRect(QRect(x, y, metrics.horizontalAdvance(line), metrics.height()), background_);
  painter_.setPen(Ink(textColor_));
  painter_.drawText(QPoint(x, y + metrics.ascent()), line);
  drawn_ = true;
}

bool QtCanvas::TakeDrawn() {
  return std::exchange(drawn_, false);
}

std::int32_t QtCanvas::TextWidth(std::u16string_view text) {
  return painter_.fontMetrics().horizontalAdvance(PlainLine(text));
}

void QtCanvas::DrawFocusRect(const CanvasRect& rect) {
  QPen pen(palette_.color(QPalette::HighlightedText));
  pen.setStyle(Qt::DotLine);
  painter_.setPen(pen);
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(ToQRect(rect).adjusted(0, 0, -1, -1));
}

}  // namespace quorvane::desktop
