#include "native/files/DamagedCopy.h"

#include <filesystem>
#include <system_error>

#include "base/Error.h"
#include "base/FilePath.h"
#include "base/Text.h"
#include "native/files/AtomicFile.h"
#include "native/files/FileBytes.h"

namespace quorvane::native {

namespace {

[[noreturn]] void Fail(const std::string& path) {
  RaiseError(ErrorNumber::PathFileAccess, u"Path/File access error: " + FromUtf8(path));
}

bool Exists(const std::string& path) {
  std::error_code failed;
  const bool exists = std::filesystem::exists(FilePath(path), failed);
  if (failed) Fail(path);
  return exists;
}

void MakeCopy(const std::string& path, const FileBytes& file, const std::string& copy) {
  if (file.error == 0) return WriteFileWhole(copy, file.bytes);
  std::error_code failed;
  std::filesystem::create_hard_link(FilePath(path), FilePath(copy), failed);
  if (failed) Fail(copy);
}

}  // namespace

std::string KeepDamagedCopy(const std::string& path) {
  if (!Exists(path)) return {};
  const FileBytes file = ReadFileBytes(path);
  for (int number = 1;; ++number) {
    const std::string copy = path + ".damaged" + (number == 1 ? "" : "-" + std::to_string(number));
    if (Exists(copy)) {
      const FileBytes earlier = ReadFileBytes(copy);
      if (file.error == 0 && earlier.error == 0 && earlier.bytes == file.bytes) return copy;
      continue;
    }
    MakeCopy(path, file, copy);
    return copy;
  }
}

}  // namespace quorvane::native
