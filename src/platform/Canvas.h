#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quorvane {

/// 0x00BBGGRR, the red part lowest.
using Color = std::uint32_t;

/// In pixels of the canvas; right and bottom lie one after the last pixel.
struct CanvasRect {
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Right = 0;
  std::int32_t Bottom = 0;

  bool operator==(const CanvasRect&) const = default;
};

/// What a font is made from.
struct LogFont {
  std::u16string FaceName;  ///< empty: the system's own
  std::int32_t Height = 0;  ///< pixels; below 0: of the characters without the space above them
  std::int32_t Weight = 400;
  bool Italic = false;
  bool Underline = false;
  bool StrikeOut = false;
  std::int16_t CharSet = 0;

  bool operator==(const LogFont&) const = default;
};

/// A font as a canvas made it; good for each canvas of its kind.
class CanvasFont {
 public:
  virtual ~CanvasFont() = default;
};

/// A surface to draw on, for as long as one drawing event lasts. Its text is plain: no tabs, no ampersands, no line
/// breaks are interpreted. What is drawn with a colour shows in it, but that a canvas for a dark screen may show a
/// darker colour of text lighter.
class Canvas {
 public:
  virtual ~Canvas() = default;

  /// Pixels of an inch, from top to bottom.
  virtual std::int32_t LogPixelsY() const = 0;
  virtual std::shared_ptr<CanvasFont> CreateFont(const LogFont& font) = 0;
  /// The font of TextOut and TextWidth from now on; gives the one before, nothing at first. Nothing takes the canvas'
  /// own.
  virtual std::shared_ptr<CanvasFont> SelectFont(std::shared_ptr<CanvasFont> font) = 0;
  virtual void SetTextColor(Color color) = 0;
  /// What TextOut puts after the characters.
  virtual void SetBkColor(Color color) = 0;

  virtual void FillRect(const CanvasRect& rect, Color color) = 0;
  /// `x` and `y` are the left top of the text.
  virtual void TextOut(std::int32_t x, std::int32_t y, std::u16string_view text) = 0;
  /// The pixels that TextOut goes on by.
  virtual std::int32_t TextWidth(std::u16string_view text) = 0;
  virtual void DrawFocusRect(const CanvasRect& rect) = 0;
};

}  // namespace quorvane
