#pragma once

#include "windows/forms/Win32.h"

namespace quorvane::windows {

/// The ground of what lies in tabs: in the system's visual style that of a page, else that of a dialog.
COLORREF TabGroundColor();
/// The system's own: never freed.
HBRUSH TabGroundBrush();

}  // namespace quorvane::windows
