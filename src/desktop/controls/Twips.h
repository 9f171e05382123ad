#pragma once

#include <QPaintDevice>
#include <cmath>

namespace quorvane::desktop {

inline constexpr int kTwipsOfInch = 1440;

/// Twips as pixels of a surface, rounded, and back.
inline int PixelsOf(int twips, const QPaintDevice& surface) {
  return static_cast<int>(std::lround(static_cast<double>(twips) * surface.logicalDpiY() / kTwipsOfInch));
}
inline int TwipsOf(int pixels, const QPaintDevice& surface) {
  return static_cast<int>(std::lround(static_cast<double>(pixels) * kTwipsOfInch / surface.logicalDpiY()));
}

}  // namespace quorvane::desktop
