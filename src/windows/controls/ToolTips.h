#pragma once

#include <string>

#include "windows/forms/Window.h"

namespace quorvane::windows {

/// The tool tips of the controls in one window.
class ToolTips final : public Window {
 public:
  explicit ToolTips(HWND owner);

  /// The empty text takes a tip away. The control lies in the owner, at whatever depth.
  void Set(HWND control, const std::u16string& text);

 private:
  HWND owner_;
};

}  // namespace quorvane::windows
