#pragma once

#include <string>
#include <string_view>

namespace quorvane::native {

/// Writes `bytes` as the file `path` (UTF-8) through a temporary file beside it. When anything fails the old file stays
/// as it was, no other is left behind, and an error with the path and the system's words is raised: 75, or 61 for a
/// full disk. A link is followed; the permissions of the old file are kept. The new file is on the disk, and found
/// there under its name, when this returns, as far as the file system keeps its word.
void WriteFileWhole(const std::string& path, std::string_view bytes);

}  // namespace quorvane::native
