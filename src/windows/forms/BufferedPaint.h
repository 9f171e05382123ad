#pragma once

#include "windows/com/Win32.h"

namespace quorvane::windows {

/// The answer to WM_PAINT without flicker: what is drawn shows all at once at the end of this. Where no second surface
/// is to be had it goes to the screen directly.
class BufferedPaint {
 public:
  explicit BufferedPaint(HWND window);
  ~BufferedPaint();
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;

  /// To draw on, in the coordinates of the window's client area.
  HDC Dc() const { return surface_ != nullptr ? surface_ : paint_.hdc; }
  /// What has to be drawn.
  const RECT& Area() const { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  HDC surface_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ before_ = nullptr;
};

}  // namespace quorvane::windows
