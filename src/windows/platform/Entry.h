#pragma once

#include <functional>
#include <type_traits>
#include <utility>

namespace quorvane::windows {

/// One call from outside into this program: a method of a COM object, a message to a window, a timer, a hook. Entries
/// nest; as long as one stands nothing under its feet may go. What has to wait for that is told to WhenAtRest, and runs
/// at the end of the outermost entry.
///
/// Everything here belongs to the one thread of the user interface.
class Entry {
 public:
  Entry() { ++depth_; }
  ~Entry();
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;

  static bool Standing() { return depth_ > 0; }
  /// Runs `action` behind the outermost entry; at once when none stands. What it raises is ignored.
  static void WhenAtRest(std::function<void()> action);

 private:
  static void Rest();

  static int depth_;
};

/// Shows the error being handled as the top of an event does, and never raises.
void ShowCaught() noexcept;

/// Runs `body` as an entry through which no exception passes: what it raises is shown to the user, and the result is
/// then `failed`.
template <class Result, class Body>
Result Enter(Result failed, Body&& body) noexcept {
  const Entry entry;
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    ShowCaught();
    return failed;
  }
}
template <class Body>
void Enter(Body&& body) noexcept {
  const Entry entry;
  try {
    std::forward<Body>(body)();
  } catch (...) {
    ShowCaught();
  }
}

}  // namespace quorvane::windows
