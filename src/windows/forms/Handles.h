#pragma once

#include <cstdint>

#include "platform/NativeWindows.h"
#include "windows/com/Win32.h"

namespace quorvane::windows {

// A window as the logic and as the window system know it. Handles of windows have 32 bits on every Windows.

inline HWND WindowOf(WindowHandle handle) {
  return reinterpret_cast<HWND>(static_cast<std::intptr_t>(handle));
}
inline WindowHandle HandleOf(HWND window) {
  return static_cast<WindowHandle>(reinterpret_cast<std::intptr_t>(window));
}

}  // namespace quorvane::windows
