#pragma once

#include <string>
#include <string_view>

#include "windows/forms/Win32.h"

namespace quorvane::windows {

/// Of one line, in pixels; the empty text is one line high.
SIZE SizeOfLine(HFONT font, std::u16string_view line);
/// The same without the marks of access keys: "&" before a letter shows nothing, "&&" one "&".
SIZE SizeOfCaption(HFONT font, std::u16string_view caption);
/// Lines broken to fit into that width.
SIZE SizeOfWrapped(HFONT font, const std::u16string& text, int width);

/// The measure of dialogs: a quarter of a letter's width across, an eighth of its height down.
class DialogUnits {
 public:
  explicit DialogUnits(HFONT font);

  int Across(int units) const { return ::MulDiv(units, width_, 4); }
  int Down(int units) const { return ::MulDiv(units, height_, 8); }
  /// The same amount to the left, above, to the right and below.
  RECT Margins(int across, int down) const { return {Across(across), Down(down), Across(across), Down(down)}; }

 private:
  int width_;
  int height_;
};

/// The screen with a font in it, for measuring.
class MeasuringContext {
 public:
  explicit MeasuringContext(HFONT font) : handle_(::GetDC(nullptr)), before_(::SelectObject(handle_, font)) {}
  ~MeasuringContext() {
    ::SelectObject(handle_, before_);
    ::ReleaseDC(nullptr, handle_);
  }
  MeasuringContext(const MeasuringContext&) = delete;
  MeasuringContext& operator=(const MeasuringContext&) = delete;

  HDC Handle() const { return handle_; }

 private:
  HDC handle_;
  HGDIOBJ before_;
};

}  // namespace quorvane::windows
