#include "windows/forms/Metrics.h"

namespace quorvane::windows {

namespace {

constexpr int kTwipsOfInch = 1440;
constexpr int kUsualDpi = 96;

}  // namespace

int Dpi() {
  const HDC screen = ::GetDC(nullptr);
  const int dpi = screen != nullptr ? ::GetDeviceCaps(screen, LOGPIXELSY) : kUsualDpi;
  if (screen != nullptr) ::ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : kUsualDpi;
}

int PixelsOfTwips(std::int32_t twips) {
  return ::MulDiv(twips, Dpi(), kTwipsOfInch);
}

std::int32_t TwipsOfPixels(int pixels) {
  return ::MulDiv(pixels, kTwipsOfInch, Dpi());
}

int Scaled(int pixels) {
  return ::MulDiv(pixels, Dpi(), kUsualDpi);
}

}  // namespace quorvane::windows
