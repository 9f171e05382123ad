#pragma once

#include <memory>
#include <string_view>

#include "platform/Canvas.h"
#include "windows/com/Win32.h"

namespace quorvane::windows {

/// A device context as a canvas, in the pixels of that. What it selects is taken out again at its end.
class GdiCanvas final : public Canvas {
 public:
  /// `dc` outlives this; `ownFont` is the canvas' own, the font of dialogs when null.
  explicit GdiCanvas(HDC dc, HFONT ownFont = nullptr);
  ~GdiCanvas() override;
  GdiCanvas(const GdiCanvas&) = delete;
  GdiCanvas& operator=(const GdiCanvas&) = delete;

  std::int32_t LogPixelsY() const override;
  std::shared_ptr<CanvasFont> CreateFont(const LogFont& font) override;
  std::shared_ptr<CanvasFont> SelectFont(std::shared_ptr<CanvasFont> font) override;
  void SetTextColor(Color color) override;
  void SetBkColor(Color color) override;
  void FillRect(const CanvasRect& rect, Color color) override;
  void TextOut(std::int32_t x, std::int32_t y, std::u16string_view text) override;
  std::int32_t TextWidth(std::u16string_view text) override;
  void DrawFocusRect(const CanvasRect& rect) override;

 private:
  HDC dc_;
  HFONT ownFont_;
  HGDIOBJ before_;
  std::shared_ptr<CanvasFont> font_;
  Color textColor_ = 0;
  Color background_ = 0xFFFFFF;
};

}  // namespace quorvane::windows
