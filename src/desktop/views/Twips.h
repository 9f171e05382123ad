#pragma once

#include <QPaintDevice>
#include <cmath>

namespace quorvane::desktop {

inline constexpr double kTwipsOfInch = 1440;

/// Twips as pixels of a surface, rounded, and back.
inline int PixelsOf(int twips, const QPaintDevice& surface) {
  return static_cast<int>(std::lround(twips * surface.logicalDpiY() / kTwipsOfInch));
}
inline int TwipsOf(int pixels, const QPaintDevice& surface) {
  return static_cast<int>(std::lround(pixels * kTwipsOfInch / surface.logicalDpiY()));
}

}  // namespace quorvane::desktop
