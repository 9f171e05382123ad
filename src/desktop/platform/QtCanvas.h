#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <memory>

#include "platform/Canvas.h"

class QPainter;

namespace quorvane::desktop {

/// The painter of a widget as a canvas. The four colours that the window system names (window, selection and their
/// texts) are drawn as those of the palette, so that a page made under one theme is right under another; any other text
/// that would be hard to read on its background is drawn lighter or darker.
class QtCanvas final : public Canvas {
 public:
  /// `painter` outlives this; its font is the canvas' own.
  QtCanvas(QPainter& painter, QPalette palette);

  std::int32_t LogPixelsY() const override;
  std::shared_ptr<CanvasFont> CreateFont(const LogFont& font) override;
  std::shared_ptr<CanvasFont> SelectFont(std::shared_ptr<CanvasFont> font) override;
  void SetTextColor(Color color) override;
  void SetBkColor(Color color) override;
  void FillRect(const CanvasRect& rect, Color color) override;
  void TextOut(std::int32_t x, std::int32_t y, std::u16string_view text) override;
  std::int32_t TextWidth(std::u16string_view text) override;
  void DrawFocusRect(const CanvasRect& rect) override;

  /// Whether text was drawn since this was last asked.
  bool TakeDrawn();

 private:
  QColor Surface(Color color) const;
  QColor Ink(Color color) const;

  QPainter& painter_;
  QPalette palette_;
  QFont ownFont_;
  std::shared_ptr<CanvasFont> font_;
  Color textColor_ = 0;
  QColor background_;
  bool drawn_ = false;
};

}  // namespace quorvane::desktop
