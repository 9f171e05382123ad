#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorvane::native {

/// Which file on disk it is, and which state of it.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;  ///< bytes
  std::int64_t modifiedSeconds = 0;
  std::int64_t modifiedNanoseconds = 0;

  /// Of the file at `path` (UTF-8), behind symbolic links; nothing, and errno set, when it cannot be found.
  static std::optional<FileStamp> Of(const std::string& path);

  bool IsSameFile(const FileStamp& other) const { return device == other.device && inode == other.inode; }
  bool operator==(const FileStamp&) const = default;
};

}  // namespace quorvane::native
