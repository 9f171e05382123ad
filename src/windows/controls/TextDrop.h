#pragma once

#include <functional>

#include "windows/forms/Win32.h"

namespace quorvane::forms {
class DataObject;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// Lets text be dragged onto a window, out of any program. The drop is a copy, whatever the drag offers beside.
class TextDrop {
 public:
  /// `take` is given what is dropped. Without drag and drop in the thread nothing happens.
  TextDrop(HWND window, std::function<void(const forms::DataObject&)> take);
  ~TextDrop();
  TextDrop(const TextDrop&) = delete;
  TextDrop& operator=(const TextDrop&) = delete;

 private:
  class Target;

  HWND window_;
  Target* target_;
};

}  // namespace quorvane::windows
