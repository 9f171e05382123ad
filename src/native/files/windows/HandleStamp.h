#pragma once

#include <optional>

#include "native/files/FileStamp.h"

namespace quorvane::native {

/// Of an open file; no value when the system does not tell.
std::optional<FileStamp> StampOf(void* file);

}  // namespace quorvane::native
