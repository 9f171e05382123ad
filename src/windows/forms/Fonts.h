#pragma once

#include <memory>
#include <utility>

#include "platform/Canvas.h"
#include "platform/forms/Font.h"
#include "windows/com/Win32.h"

namespace quorvane::windows {

/// Owns a font of the window system.
class FontHandle {
 public:
  FontHandle() = default;
  explicit FontHandle(HFONT font) : font_(font) {}
  FontHandle(FontHandle&& other) noexcept : font_(std::exchange(other.font_, nullptr)) {}
  FontHandle& operator=(FontHandle&& other) noexcept {
    std::swap(font_, other.font_);
    return *this;
  }
  ~FontHandle() {
    if (font_ != nullptr) ::DeleteObject(font_);
  }

  HFONT Get() const { return font_; }
  explicit operator bool() const { return font_ != nullptr; }

 private:
  HFONT font_ = nullptr;
};

/// The font of message boxes and dialogs; the system's own where no other is named.
LOGFONTW SystemFont();
/// A font as the logic names it: by height in pixels, or by size in points.
FontHandle MakeFont(const LogFont& font);
FontHandle MakeFont(const forms::Font& font);
/// The font of dialogs. One for the life of the program's code; its owner keeps it.
HFONT DialogFont();
/// Lets the font of dialogs go; the next call makes it anew.
void ForgetFonts();

}  // namespace quorvane::windows
