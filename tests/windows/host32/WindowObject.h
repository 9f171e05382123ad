#pragma once

#include "windows/com/WideText.h"
#include "windows/com/Win32.h"

namespace quorvane::container {

/// One object for one window, which it owns as long as the window lives: messages go to OnMessage from WM_NCCREATE to
/// WM_NCDESTROY. What OnMessage raises goes no further.
class WindowObject {
 public:
  virtual ~WindowObject() = default;

  HWND Handle() const { return handle_; }

  /// The window procedure of all such windows; the object is the window's creation parameter, that of an MDI child the
  /// parameter of its own creation structure.
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static void Register(const wchar_t* name);

 protected:
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

  HWND handle_ = nullptr;
};

}  // namespace quorvane::container
