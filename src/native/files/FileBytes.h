#pragma once

#include <optional>
#include <string>

namespace quorvane::native {

/// The bytes of the file `path` (UTF-8); nothing when it cannot be read to its end, or is no file.
std::optional<std::string> FileBytes(const std::string& path);

}  // namespace quorvane::native
