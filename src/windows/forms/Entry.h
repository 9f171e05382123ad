#pragma once

#include <utility>

#include "windows/com/Entry.h"

namespace quorvane::windows {

using com::Entry;

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
