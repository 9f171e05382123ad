#include "windows/forms/BufferedPaint.h"

#include "windows/forms/Metrics.h"

namespace quorvane::windows {

BufferedPaint::BufferedPaint(HWND window) : window_(window) {
  ::BeginPaint(window, &paint_);
  const RECT& area = paint_.rcPaint;
  if (Width(area) <= 0 || Height(area) <= 0) return;
  bitmap_ = ::CreateCompatibleBitmap(paint_.hdc, Width(area), Height(area));
  if (bitmap_ == nullptr) return;
  surface_ = ::CreateCompatibleDC(paint_.hdc);
  if (surface_ == nullptr) return;
  before_ = ::SelectObject(surface_, bitmap_);
  ::SetViewportOrgEx(surface_, -area.left, -area.top, nullptr);
}

BufferedPaint::~BufferedPaint() {
  const RECT& area = paint_.rcPaint;
  if (surface_ != nullptr) {
    ::BitBlt(paint_.hdc, area.left, area.top, Width(area), Height(area), surface_, area.left, area.top, SRCCOPY);
    ::SelectObject(surface_, before_);
    ::DeleteDC(surface_);
  }
  if (bitmap_ != nullptr) ::DeleteObject(bitmap_);
  ::EndPaint(window_, &paint_);
}

}  // namespace quorvane::windows
