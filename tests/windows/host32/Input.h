#pragma once

#include <string>

namespace quorvane::container {

// Keys and mouse as if from the user's hands. They arrive through the window system's queue, after the caller.

/// "ctrl+shift+f3": modifiers and one key. Raises error 5 for a key that it does not know.
void PressKeys(const std::string& keys);
/// Letters, digits and blanks alone; others raise error 5.
void TypeText(const std::string& text);
/// Screen pixels.
void MoveMouse(int x, int y);
void ClickMouse(bool right, bool twice);

}  // namespace quorvane::container
