#include "native/files/FileStamp.h"

#include "native/files/posix/Stat.h"

namespace quorvane::native {

FileStamp StampOf(const struct stat& found) {
  return {static_cast<std::uint64_t>(found.st_dev), static_cast<std::uint64_t>(found.st_ino),
          static_cast<std::int64_t>(found.st_size), static_cast<std::int64_t>(found.st_mtim.tv_sec),
          static_cast<std::int64_t>(found.st_mtim.tv_nsec)};
}

std::optional<FileStamp> FileStamp::Of(const std::string& path) {
  struct stat found {};
  if (::stat(path.c_str(), &found) != 0) return std::nullopt;
  return StampOf(found);
}

}  // namespace quorvane::native
