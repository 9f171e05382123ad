#pragma once

#include <string_view>

#include "vbide/VBIDE.h"

namespace quorvane {

/// "Proc", "Let", "Set" or "Get".
std::u16string_view ProcKindName(vbide::ProcKind kind);

}  // namespace quorvane
