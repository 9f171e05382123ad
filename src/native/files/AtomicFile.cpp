#include "native/files/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::native {

namespace {

constexpr std::int32_t kDiskFull = 61;
constexpr std::int32_t kPathAccess = 75;
constexpr mode_t kUsualMode = 0666;

[[noreturn]] void RaiseFileError(const std::string& path, int code) {
  throw Error(code == ENOSPC ? kDiskFull : kPathAccess,
              u"Cannot write " + FromUtf8(path) + u": " + FromUtf8(std::generic_category().message(code)));
}

/// The permissions that the new file gets: those of the old one, else what a new file usually gets.
mode_t ModeFor(const std::string& path) {
  struct stat old {};
  if (stat(path.c_str(), &old) == 0) return old.st_mode & 07777;
  const mode_t mask = umask(0);
  umask(mask);
  return kUsualMode & ~mask;
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

/// The file that a link leads to, the path itself when it is none.
std::string Target(const std::string& path) {
  std::error_code failed;
  if (!std::filesystem::is_symlink(path, failed)) return path;
  const std::filesystem::path real = std::filesystem::weakly_canonical(path, failed);
  return failed ? path : real.string();
}

/// The rename lasts when the folder is on the disk. The new file is in place whatever comes of this, and not every file
/// system can do it.
void SyncFolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  const int file = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return;
  fsync(file);
  close(file);
}

}  // namespace

void WriteFileWhole(const std::string& path, std::string_view bytes) {
  const std::string target = Target(path);
  if (std::error_code ignored; std::filesystem::is_directory(target, ignored)) RaiseFileError(path, EISDIR);
  std::string temporary = target + ".XXXXXX";
  const int file = mkstemp(temporary.data());
  if (file < 0) RaiseFileError(path, errno);
  const bool written = fchmod(file, ModeFor(target)) == 0 && WriteAll(file, bytes) && fsync(file) == 0;
  int code = written ? 0 : errno;
  if (close(file) != 0 && code == 0) code = errno;
  if (code == 0 && std::rename(temporary.c_str(), target.c_str()) != 0) code = errno;
  if (code == 0) return SyncFolderOf(target);
  unlink(temporary.c_str());
  RaiseFileError(path, code);
}

}  // namespace quorvane::native
