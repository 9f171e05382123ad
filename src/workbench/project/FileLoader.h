#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "native/files/FileStamp.h"
#include "workbench/text/Sieve.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::workbench {

struct LoadedFile {
  std::shared_ptr<const SourceFile> source;  ///< null when the file could not be read
  native::FileStamp stamp;
  int error = 0;  ///< as of native::FileBytes
};

/// Told between two files, on the caller's thread, how many of how many were begun. False asks to stop.
using LoadProgress = std::function<bool(std::size_t begun, std::size_t total)>;

/// Reads and takes apart many files on all hardware threads. The results stand in the order of `paths`. Raises error 18
/// when `progress`, which may be nothing, asks to stop; what it raises itself reaches the caller. Files go through
/// `sieve`, unless it is null, while they are read.
std::vector<LoadedFile> LoadFiles(const std::vector<std::string>& paths, const LoadProgress& progress = {},
                                  const std::shared_ptr<const Sieve>& sieve = nullptr);

}  // namespace quorvane::workbench
