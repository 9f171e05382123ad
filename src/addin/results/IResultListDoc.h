#pragma once

#include <memory>

#include "platform/NativeWindows.h"

namespace quorvane::forms {
class Controls;
class TabControl;
}  // namespace quorvane::forms

namespace quorvane {

/// What pages need of the document in the result tool window.
class IResultListDoc {
 public:
  virtual ~IResultListDoc() = default;

  virtual forms::Controls& Controls() = 0;
  /// Opens the menu of the result list at the mouse position.
  virtual void PopupMenu() = 0;
  /// Whether the user has asked for the code preview.
  virtual bool ShowPreview() const = 0;
  virtual WindowHandle hwnd() const = 0;
  virtual std::shared_ptr<forms::TabControl> TabControl() = 0;
};

}  // namespace quorvane
