#include "cli/Output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::cli {

namespace {
constexpr std::size_t kBufferSize = 64 * 1024;
constexpr mode_t kNewFileMode = 0666;
}  // namespace

Output::Output(std::string path) : path_(std::move(path)) {
  std::signal(SIGPIPE, SIG_IGN);
  buffer_.reserve(kBufferSize);
  if (path_.empty()) return;
  struct stat status = {};
  const bool exists = stat(path_.c_str(), &status) == 0;
  if (exists && !S_ISREG(status.st_mode)) {  // a device or a pipe has no place to be renamed to
    file_ = open(path_.c_str(), O_WRONLY | O_CLOEXEC);
    if (file_ < 0) Fail(errno);
    return;
  }
  if (exists && access(path_.c_str(), W_OK) != 0) Fail(errno);
  std::error_code failed;
  const auto target = exists ? std::filesystem::canonical(path_, failed) : std::filesystem::path(path_);
  if (!failed) path_ = target.string();
  std::string name = (target.parent_path() / ("." + target.filename().string() + ".quorvane-XXXXXX")).string();
  file_ = mkostemp(name.data(), O_CLOEXEC);
  if (file_ < 0) Fail(errno);
  temporary_ = name;
  const mode_t mask = umask(0);
  umask(mask);
  fchmod(file_, exists ? status.st_mode & 07777 : kNewFileMode & ~mask);
}

Output::~Output() {
  if (!temporary_.empty()) std::remove(temporary_.c_str());
  if (file_ > 2) close(file_);
}

void Output::Write(std::string_view bytes) {
  if (closed_) return;
  buffer_ += bytes;
  if (buffer_.size() >= kBufferSize) Flush();
}

void Output::Flush() {
  std::string_view rest = buffer_;
  while (!rest.empty() && !closed_) {
    const ssize_t written = write(file_, rest.data(), rest.size());
    if (written >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EPIPE) {
      closed_ = true;
    } else if (errno != EINTR) {
      failure_ = errno;
      closed_ = true;
    }
  }
  buffer_.clear();
}

void Output::Finish() {
  Flush();
  if (failure_ != 0) Fail(failure_);
  if (temporary_.empty()) return;
  if (fsync(file_) != 0 || std::rename(temporary_.c_str(), path_.c_str()) != 0) Fail(errno);
  temporary_.clear();
}

bool Output::IsTerminal() const {
  return isatty(file_) == 1;
}

void Output::Fail(int error) const {
  const std::string name = path_.empty() ? "standard output" : path_;
  throw Error(error, FromUtf8(name + ": " + std::strerror(error)));
}

}  // namespace quorvane::cli
