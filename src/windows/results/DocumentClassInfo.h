#pragma once

#include <string_view>

#include "windows/com/ComPtr.h"

namespace quorvane::windows {

/// Type information of a coclass with one dispatch interface that has no members, for hosts that ask a control what it
/// is before they take it. Made in memory: there is no type library. Raises when the system refuses.
///
/// `classId` is the identifier as the registry spells it, and an identifier for the interface is made from it.
com::ComPtr<ITypeInfo> MakeClassInfo(std::u16string_view name, std::u16string_view classId);

/// The identifier itself; raises for a text that is none.
CLSID ClassIdOf(std::u16string_view classId);

}  // namespace quorvane::windows
