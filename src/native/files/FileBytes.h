#pragma once

#include <cstddef>
#include <string>

#include "native/files/FileStamp.h"

namespace quorvane::native {

inline constexpr int kNotRegularFile = -1;  ///< no errno has this value

/// A file as read; either `error` tells why it could not be read, or the rest is filled.
struct FileBytes {
  std::string bytes;
  FileStamp stamp;
  int error = 0;  ///< errno, or kNotRegularFile
};

/// Reads a regular file of less than 2^31 bytes. Never waits for a pipe or device: it refuses them. UTF-8.
FileBytes ReadFileBytes(const std::string& path);

struct FileRead {
  std::size_t length = 0;
  FileStamp stamp;
  int error = 0;  ///< errno, or kNotRegularFile
};

/// The same into a buffer that grows as it needs and never shrinks: its first `length` bytes are the file's.
FileRead ReadFileInto(const std::string& path, std::string& buffer);

/// Words for the `error` of the above: the system's for an errno.
std::string ErrnoText(int error);

/// Whether an errno says that the disk, or the user's part of it, takes no more.
bool IsDiskFull(int error);

}  // namespace quorvane::native
