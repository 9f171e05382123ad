#pragma once

#include "windows/com/Win32.h"

namespace quorvane::container {

/// Drags the selected text of an edit field, where the press that the field is about to be given is on it, as the
/// environment's code windows do: it is offered as a move and as a copy. Returns whether the press became a drag; it
/// then has ended, and the field has no use for it.
bool DragSelection(HWND field, LPARAM press);

}  // namespace quorvane::container
