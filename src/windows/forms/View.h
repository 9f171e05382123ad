#pragma once

#include "windows/com/Win32.h"
#include "windows/forms/InputHook.h"

namespace quorvane::windows {

/// What shows one model inside a window that is given to it: a form's inside, a document's. It shows its model and
/// feeds the user's input back; it holds no logic. As a rule it is itself a Window, a child of that window, not visible
/// before it is placed.
class View {
 public:
  virtual ~View() = default;

  virtual HWND Handle() const = 0;
  /// The size that it wants, in pixels; asked again after each change of the form. A form without a border has its size
  /// from the model, and this is not asked.
  virtual SIZE WantedSize() const = 0;
  /// Gives the focus to the control where it begins or last was.
  virtual void TakeFocus() = 0;
  /// As KeyTarget::TakeKey, before the window's own handling of Enter, Esc, Tab, arrows and marked letters.
  virtual bool TakeKey(const MSG&) { return false; }
};

}  // namespace quorvane::windows
