#include "windows/bridge/HostEpoch.h"

#include "windows/com/Win32.h"

namespace quorvane::bridge {

namespace {

constexpr std::uint32_t kSystemTimer = 0x0118;  // by which a caret blinks

}  // namespace

bool HostEpoch::MayChangeCode(std::uint32_t message) {
  switch (message) {
    case WM_NULL:
    case WM_PAINT:
    case WM_NCPAINT:
    case WM_ERASEBKGND:
    case WM_SYNCPAINT:
    case WM_TIMER:
    case WM_MOUSEMOVE:
    case WM_NCMOUSEMOVE:
    case WM_MOUSEHOVER:
    case WM_MOUSELEAVE:
    case WM_NCMOUSELEAVE:
    case WM_MOUSEWHEEL:
    case kSystemTimer:
      return false;
    default:
      return true;
  }
}

}  // namespace quorvane::bridge
