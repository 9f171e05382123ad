#pragma once

#include <cstdint>

namespace quorvane::forms {

/// The screen as forms see it, in pixels as Dialog counts them. The program's window system writes it; without one it
/// is empty.
struct Screen {
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  std::int32_t TwipsPerPixel = 15;  ///< across and down; 96 dots an inch
  std::int32_t Left = 0;            ///< where it lies among several, below 0 left of the first
  std::int32_t Top = 0;
};

/// The one of the program.
Screen& TheScreen();

}  // namespace quorvane::forms
