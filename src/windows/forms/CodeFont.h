#pragma once

#include "platform/forms/Font.h"
#include "windows/forms/Fonts.h"

namespace quorvane::windows {

/// The font of texts that are read in columns: the one that is asked for, and where it is not installed the system's
/// font of fixed width rather than whatever letters come first.
FontHandle CodeFont(const forms::Font& wanted = {});

}  // namespace quorvane::windows
