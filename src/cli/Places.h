#pragma once

#include <cstdint>
#include <string>

namespace quorvane {
class PositionInfo;
}

namespace quorvane::cli {

struct FilePlace {
  std::string path;       ///< the file as found on disk, relative to the working directory
  std::int32_t line = 0;  ///< 1-based, of the file
};

/// Where a range begins on disk.
FilePlace PlaceOf(const PositionInfo& pi);

}  // namespace quorvane::cli
