#pragma once

#include <cstdint>

#include "platform/forms/MouseButton.h"
#include "windows/forms/Win32.h"

namespace quorvane::windows {

// Mouse and keys as the models of controls count them.

/// The button that a message of a press or double click is about.
inline std::int16_t ButtonOf(UINT message) {
  switch (message) {
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_RBUTTONDBLCLK:
      return forms::kRightButton;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
    case WM_MBUTTONDBLCLK:
      return forms::kMiddleButton;
    default:
      return forms::kLeftButton;
  }
}

/// Where the mouse was, in pixels of the window, by the message that tells it.
inline int MouseX(LPARAM place) {
  return static_cast<std::int16_t>(LOWORD(place));
}
inline int MouseY(LPARAM place) {
  return static_cast<std::int16_t>(HIWORD(place));
}

/// Sum of the buttons held during a move; `keys` as the message has them.
inline std::int16_t ButtonsHeld(WPARAM keys) {
  return static_cast<std::int16_t>(((keys & MK_LBUTTON) != 0 ? forms::kLeftButton : 0) |
                                   ((keys & MK_RBUTTON) != 0 ? forms::kRightButton : 0) |
                                   ((keys & MK_MBUTTON) != 0 ? forms::kMiddleButton : 0));
}

/// Sum of 1 Shift, 2 Ctrl, 4 Alt.
inline std::int16_t HeldKeys() {
  const auto held = [](int key) { return ::GetKeyState(key) < 0; };
  return static_cast<std::int16_t>((held(VK_SHIFT) ? 1 : 0) | (held(VK_CONTROL) ? 2 : 0) | (held(VK_MENU) ? 4 : 0));
}

}  // namespace quorvane::windows
