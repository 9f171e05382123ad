#include "native/files/FileBytes.h"

#include <cstdio>
#include <memory>

namespace quorvane::native {

std::optional<std::string> FileBytes(const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
  if (!file) return std::nullopt;
  constexpr std::size_t kPiece = 16384;
  std::string bytes;
  std::size_t got = kPiece;
  while (got == kPiece) {
    const std::size_t before = bytes.size();
    bytes.resize(before + kPiece);
    got = std::fread(bytes.data() + before, 1, kPiece, file.get());
    bytes.resize(before + got);
  }
  if (std::ferror(file.get()) != 0) return std::nullopt;
  return bytes;
}

}  // namespace quorvane::native
