#include "native/files/FileAccess.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "base/FilePath.h"

namespace quorvane::native {

bool CanWrite(const std::string& path) {
  return ::access(path.c_str(), W_OK) == 0;
}

std::string RealPath(const std::string& path) {
  std::error_code failed;
  const std::filesystem::path real = std::filesystem::canonical(FilePath(path), failed);
  return failed ? std::string() : PathText(real);
}

}  // namespace quorvane::native
