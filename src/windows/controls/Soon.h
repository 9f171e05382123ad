#pragma once

#include <functional>
#include <utility>

#include "windows/forms/Win32.h"

namespace quorvane::windows {

/// Does one thing soon, once for however many times it was asked to: a model that changes thousands of times a second
/// is shown some sixty times. It runs on a timer of the window, since messages of timers are served when no other waits
/// and say nothing of a user who types.
///
///     case WM_TIMER: if (soon_.Take(wParam)) return 0;
class Soon {
 public:
  Soon(UINT_PTR id, std::function<void()> action) : id_(id), action_(std::move(action)) {}

  void Ask(HWND window) {
    if (asked_ || window == nullptr) return;
    asked_ = ::SetTimer(window, id_, USER_TIMER_MINIMUM, nullptr) != 0;
    window_ = window;
    if (!asked_) action_();
  }
  /// At once, when it was asked for.
  void Now() {
    if (!std::exchange(asked_, false)) return;
    ::KillTimer(window_, id_);
    action_();
  }
  /// True for the timer of this.
  bool Take(UINT_PTR timer) {
    if (timer != id_) return false;
    Now();
    return true;
  }
  /// No more: the window goes.
  void Drop() { asked_ = false; }

 private:
  const UINT_PTR id_;
  const std::function<void()> action_;
  HWND window_ = nullptr;
  bool asked_ = false;
};

}  // namespace quorvane::windows
