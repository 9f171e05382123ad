#include "native/files/RunningProcess.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace quorvane::native {

namespace {

/// Files of /proc and /etc that are not there are empty.
std::string Contents(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

/// Its name, its id, and which table of processes a number is from, for containers have tables of their own.
std::string MachineText() {
  std::array<char, 256> host{};
  ::gethostname(host.data(), host.size() - 1);
  std::error_code failed;
  return host.data() + Contents("/etc/machine-id") +
         std::filesystem::read_symlink("/proc/self/ns/pid", failed).string();
}

std::uint64_t ThisProcess() {
  return static_cast<std::uint64_t>(::getpid());
}

std::uint64_t StartOf(std::uint64_t process) {
  constexpr int kFieldsBefore = 19;  // after the name, which ends with the last bracket
  const std::string status = Contents("/proc/" + std::to_string(process) + "/stat");
  std::size_t at = status.rfind(')');
  if (at == std::string::npos) return 0;
  at += 2;
  for (int field = 0; field < kFieldsBefore && at < status.size(); ++field) {
    const std::size_t blank = status.find(' ', at);
    if (blank == std::string::npos) return 0;
    at = blank + 1;
  }
  std::uint64_t start = 0;
  std::from_chars(status.data() + at, status.data() + status.size(), start);
  return start;
}

bool IsNoProcess(std::uint64_t process) {
  return ::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH;
}

}  // namespace quorvane::native
