#pragma once

#include <Qt>
#include <cstdint>

class QKeyEvent;

namespace quorvane::desktop {

/// The platform's virtual-key code of a pressed key; 0 for a key without one. For signs it is that of the key which the
/// keyboard's layout has for the code; where the window system does not tell the layout, by the US keyboard.
std::int32_t VirtualKeyOf(const QKeyEvent& event);

/// Sum of 1 Shift, 2 Ctrl, 4 Alt, as key and mouse events of forms and hotkeys have it.
std::int32_t ShiftStateOf(Qt::KeyboardModifiers modifiers);

/// 1 left, 2 right, 4 middle; 0 for any other button.
std::int16_t MouseButtonOf(Qt::MouseButton button);

}  // namespace quorvane::desktop
