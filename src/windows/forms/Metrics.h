#pragma once

#include <cstdint>

#include "windows/com/Win32.h"

namespace quorvane::windows {

/// Pixels of an inch of the screen. The process is the host's, and so is what the system tells it of the screen.
int Dpi();

/// A twip is the 1440th part of an inch.
int PixelsOfTwips(std::int32_t twips);
std::int32_t TwipsOfPixels(int pixels);
/// What is `pixels` at 96 an inch.
int Scaled(int pixels);

inline int Width(const RECT& rect) {
  return rect.right - rect.left;
}
inline int Height(const RECT& rect) {
  return rect.bottom - rect.top;
}

}  // namespace quorvane::windows
