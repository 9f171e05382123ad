#pragma once

#include "windows/com/Win32.h"

namespace quorvane::windows {

/// The monitor that shows most of a window, or is nearest to it; without one, that of the pointer. Never null.
HMONITOR MonitorOf(HWND window);

/// The one that holds the pointer. Never null.
HMONITOR MonitorOfPointer();

/// Makes a monitor, less its task bar, the screen of all forms: they centre over it and end at its edges.
void TellForms(HMONITOR monitor);

/// As above, of what the system says of a monitor.
void TellForms(const MONITORINFO& monitor);

}  // namespace quorvane::windows
