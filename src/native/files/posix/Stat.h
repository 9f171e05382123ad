#pragma once

#include <sys/stat.h>

#include "native/files/FileStamp.h"

namespace quorvane::native {

FileStamp StampOf(const struct stat& found);

}  // namespace quorvane::native
