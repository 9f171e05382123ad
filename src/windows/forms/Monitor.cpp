#include "windows/forms/Monitor.h"

#include "platform/forms/Screen.h"
#include "windows/forms/Metrics.h"

namespace quorvane::windows {

HMONITOR MonitorOf(HWND window) {
  return window != nullptr ? ::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST) : MonitorOfPointer();
}

HMONITOR MonitorOfPointer() {
  POINT pointer{};
  ::GetCursorPos(&pointer);
  return ::MonitorFromPoint(pointer, MONITOR_DEFAULTTONEAREST);
}

void TellForms(HMONITOR monitor) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (::GetMonitorInfoW(monitor, &info)) TellForms(info);
}

void TellForms(const MONITORINFO& monitor) {
  const RECT& work = monitor.rcWork;
  forms::TheScreen() = {Width(work), Height(work), TwipsOfPixels(1), work.left, work.top};
}

}  // namespace quorvane::windows
