#include "workbench/text/FileStamp.h"

#include <sys/stat.h>

namespace quorvane::workbench {

FileStamp FileStamp::From(const struct stat& found) {
  return {static_cast<std::uint64_t>(found.st_dev), static_cast<std::uint64_t>(found.st_ino),
          static_cast<std::int64_t>(found.st_size), static_cast<std::int64_t>(found.st_mtim.tv_sec),
          static_cast<std::int64_t>(found.st_mtim.tv_nsec)};
}

std::optional<FileStamp> FileStamp::Of(const std::string& path) {
  struct stat found {};
  if (::stat(path.c_str(), &found) != 0) return std::nullopt;
  return From(found);
}

}  // namespace quorvane::workbench
