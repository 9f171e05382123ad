#pragma once

#include <vector>

#include "windows/com/Win32.h"

namespace quorvane::windows {

/// Keeps every visible top-level window of this thread disabled, but one, for as long as it lives. Those that were
/// disabled before stay so after it.
class DisabledWindows {
 public:
  explicit DisabledWindows(HWND spared);
  ~DisabledWindows();
  DisabledWindows(const DisabledWindows&) = delete;
  DisabledWindows& operator=(const DisabledWindows&) = delete;

 private:
  std::vector<HWND> disabled_;
};

}  // namespace quorvane::windows
