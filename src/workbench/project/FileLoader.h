#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/text/FileStamp.h"
#include "workbench/text/Sieve.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::workbench {

inline constexpr int kNotRegularFile = -1;  ///< no errno has this value

/// A file as read; either `error` tells why it could not be read, or the rest is filled.
struct FileBytes {
  std::string bytes;
  FileStamp stamp;
  int error = 0;  ///< errno, or kNotRegularFile
};

/// Reads a regular file of less than 2^31 bytes. Never waits for a pipe or device: it refuses them.
FileBytes ReadFileBytes(const std::string& path);

/// The same into a buffer that grows as it needs and never shrinks: its first `length` bytes are the file's.
struct FileRead {
  std::size_t length = 0;
  FileStamp stamp;
  int error = 0;  ///< errno, or kNotRegularFile
};
FileRead ReadFileInto(const std::string& path, std::string& buffer);

struct LoadedFile {
  std::shared_ptr<const SourceFile> source;  ///< nothing when the file could not be read
  FileStamp stamp;
  int error = 0;  ///< errno, or kNotRegularFile
};

/// Told between two files, on the caller's thread, how many of how many were begun. False asks to stop.
using LoadProgress = std::function<bool(std::size_t begun, std::size_t total)>;

/// Reads and takes apart many files on all hardware threads. The results stand in the order of `paths`. Raises error 18
/// when `progress`, which may be nothing, asks to stop; what it raises itself reaches the caller. Files go through
/// `sieve`, unless it is null, while they are read.
std::vector<LoadedFile> LoadFiles(const std::vector<std::string>& paths, const LoadProgress& progress = {},
                                  const std::shared_ptr<const Sieve>& sieve = nullptr);

/// Words for the `error` of the two above: the system's for an errno.
std::string ErrnoText(int error);

}  // namespace quorvane::workbench
