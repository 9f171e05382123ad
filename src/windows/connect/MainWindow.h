#pragma once

#include "windows/com/ComPtr.h"

namespace quorvane::windows {

/// The host's main window: by the handle that its object model tells, else by what such a window is called in this
/// process. Null when there is none.
HWND FindMainWindow(const com::ComPtr<IDispatch>& application);

}  // namespace quorvane::windows
