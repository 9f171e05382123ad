#include "cli/RawOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace quorvane::cli {

RawOutput::RawOutput(int file) : file_(file) {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

RawOutput::~RawOutput() {
  if (file_ > kStandardError) close(file_);
}

int RawOutput::Open(const std::string& path) {
  file_ = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  return file_ < 0 ? errno : 0;
}

int RawOutput::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file_, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

bool RawOutput::IsTerminal() const {
  const char* const terminal = std::getenv("TERM");
  const char* const noColour = std::getenv("NO_COLOR");
  const bool plain =
      (terminal != nullptr && std::string_view(terminal) == "dumb") || (noColour != nullptr && *noColour != '\0');
  return !plain && isatty(file_) == 1;
}

}  // namespace quorvane::cli
