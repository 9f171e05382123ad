#pragma once

#include "base/Event.h"
#include "chordtrap/KeyChord.h"
#include "windows/forms/Window.h"

namespace quorvane::windows {

/// A box that shows the chord which was pressed in it, whatever that is; Tab alone leads on.
class KeyBox final : public Window {
 public:
  KeyBox(HWND parent, int id);

  /// True when the key was one for the box.
  bool TakeKey(const MSG& message);

  Event<const chordtrap::KeyChord&> Pressed;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
};

}  // namespace quorvane::windows
