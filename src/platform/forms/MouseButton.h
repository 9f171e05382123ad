#pragma once

#include <cstdint>

namespace quorvane::forms {

/// Buttons of the mouse in the events of controls; those held during a move are added up.
enum MouseButton : std::int16_t { kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };

}  // namespace quorvane::forms
