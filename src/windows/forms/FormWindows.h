#pragma once

#include <memory>
#include <unordered_map>

#include "base/Event.h"
#include "windows/com/Win32.h"

namespace quorvane::forms {
class Form;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

class FormWindow;
class ViewFactory;

/// A window for each open form.
class FormWindows {
 public:
  /// `views` and the hook of this thread outlive this.
  explicit FormWindows(const ViewFactory& views);
  ~FormWindows();

  /// The window above which those of the forms stay, made from now on: the host's. Null: none.
  void SetOwner(HWND owner) { owner_ = owner; }

  /// Nothing for a form without a window.
  FormWindow* WindowOf(const forms::Form& form) const;

 private:
  void Open(forms::Form& form);
  void Close(forms::Form& form);

  const ViewFactory& views_;
  HWND owner_ = nullptr;
  std::unordered_map<const forms::Form*, std::unique_ptr<FormWindow>> shown_;
  Subscription opened_;
  Subscription closed_;
};

}  // namespace quorvane::windows
