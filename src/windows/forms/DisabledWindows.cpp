#include "windows/forms/DisabledWindows.h"

namespace quorvane::windows {

namespace {

BOOL CALLBACK Collect(HWND window, LPARAM list) {
  if (::IsWindowVisible(window) && ::IsWindowEnabled(window)) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  }
  return TRUE;
}

}  // namespace

DisabledWindows::DisabledWindows(HWND spared) {
  ::EnumThreadWindows(::GetCurrentThreadId(), &Collect, reinterpret_cast<LPARAM>(&disabled_));
  std::erase(disabled_, spared);
  for (const HWND window : disabled_) ::EnableWindow(window, FALSE);
}

DisabledWindows::~DisabledWindows() {
  for (const HWND window : disabled_) ::EnableWindow(window, TRUE);
}

}  // namespace quorvane::windows
