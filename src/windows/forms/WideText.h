#pragma once

#include "windows/com/WideText.h"

namespace quorvane::windows {

using com::FromWide;
using com::Wide;

}  // namespace quorvane::windows
