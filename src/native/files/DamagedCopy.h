#pragma once

#include <string>

namespace quorvane::native {

/// Keeps the file `path` (UTF-8) as it lies on the disk as "<path>.damaged", or "<path>.damaged-2" and so on where
/// another copy has the name, and gives the path of the copy: an earlier one with the same bytes will do. A file that
/// cannot be read gets a second name instead of a copy. Empty without a file. Raises error 75, or 61 for a full disk,
/// when it cannot be kept.
std::string KeepDamagedCopy(const std::string& path);

}  // namespace quorvane::native
