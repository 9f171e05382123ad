#include "native/files/NewFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "native/files/Leftovers.h"
#include "native/files/ProcessMark.h"

namespace quorvane::native {

namespace {

constexpr mode_t kUsualMode = 0666;
constexpr mode_t kPermissions = 07777;

int ErrnoIf(bool failed) {
  return failed ? errno : 0;
}

}  // namespace

NewFile::NewFile(std::string target) : target_(std::move(target)) {
  // Where files may not grow beyond some size, a write shall fail as on a full disk, not end the program.
  static const bool limitsTold = std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR;
  static_cast<void>(limitsTold);
  path_ = TemporaryPrefix(target_) + ProcessMark() + "-XXXXXX";
  handle_ = ::mkostemp(path_.data(), O_CLOEXEC);
  made_ = ErrnoIf(handle_ < 0);
  exists_ = handle_ >= 0;
}

NewFile::~NewFile() {
  if (handle_ >= 0) ::close(static_cast<int>(handle_));
  if (exists_) ::unlink(path_.c_str());
}

int NewFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(static_cast<int>(handle_), bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count == 0 ? ENOSPC : errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

/// Another user's file may become ours. The mode comes last, as a change of owner takes bits away.
int NewFile::Dress() {
  const int file = static_cast<int>(handle_);
  struct stat like {};
  if (::stat(target_.c_str(), &like) != 0) {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return ErrnoIf(::fchmod(file, kUsualMode & ~mask) != 0);
  }
  const bool owned = ::fchown(file, like.st_uid, like.st_gid) == 0;
  if (!owned) static_cast<void>(!::fchown(file, static_cast<uid_t>(-1), like.st_gid));
  return ErrnoIf(::fchmod(file, like.st_mode & kPermissions) != 0);
}

int NewFile::Finish() {
  const int file = static_cast<int>(handle_);
  const int error = ErrnoIf(::fsync(file) != 0);
  handle_ = -1;
  const int closing = ErrnoIf(::close(file) != 0);
  return error != 0 ? error : closing;
}

int NewFile::TakePlace() {
  if (MoveOver(path_.c_str(), target_.c_str()) != 0) return errno;
  Moved();
  return 0;
}

int MoveOver(const char* from, const char* to) {
  return std::rename(from, to);
}

int FlushFolder(const std::string& folder) {
  const int handle = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return errno;
  const int error = ::fsync(handle) == 0 || errno == EINVAL ? 0 : errno;
  ::close(handle);
  return error;
}

}  // namespace quorvane::native
