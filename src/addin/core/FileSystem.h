#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// What can be said of a path without touching a disk. Both slashes separate folders.
class FileSystem {
 public:
  /// What follows the last dot of the last name in `path`, without the dot; empty when there is no dot.
  std::u16string GetExtensionName(std::u16string_view path) const;
};

}  // namespace quorvane
