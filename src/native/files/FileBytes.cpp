#include "native/files/FileBytes.h"

#include <cerrno>
#include <system_error>

namespace quorvane::native {

FileBytes ReadFileBytes(const std::string& path) {
  FileBytes file;
  const FileRead read = ReadFileInto(path, file.bytes);
  file.bytes.resize(read.length);
  file.stamp = read.stamp;
  file.error = read.error;
  return file;
}

std::string ErrnoText(int error) {
  if (error == kNotRegularFile) return "not a regular file";
  return std::generic_category().message(error);
}

bool IsDiskFull(int error) {
#ifdef EDQUOT
  if (error == EDQUOT) return true;
#endif
  return error == ENOSPC || error == EFBIG;
}

}  // namespace quorvane::native
