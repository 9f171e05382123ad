#pragma once

#include <string>

#include "windows/com/ComPtr.h"

namespace quorvane::container {

/// A new object of that ProgID. Classes that are registered for the user alone are found, too, where the system does
/// not look for them, as Wine does not: they are then registered for the machine. Raises what COM answers.
com::ComPtr<IUnknown> MakeByProgId(const std::u16string& progId);

}  // namespace quorvane::container
