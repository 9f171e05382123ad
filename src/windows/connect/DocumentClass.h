#pragma once

#include "windows/com/ComPtr.h"

namespace quorvane::windows {

/// A new object of the class that a tool window hosts: the control around a document of the running code.
com::ComPtr<IUnknown> NewDocumentObject();

}  // namespace quorvane::windows
