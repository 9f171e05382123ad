// A mark is "machine-process-start". A number of a process comes back some day: the time at which it started tells two
// apart. The machine counts since a folder may be shared: its name, its id, and which table of processes the number is
// from, for containers have tables of their own.
#include "native/files/ProcessMark.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>
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

std::string Hex(std::uint64_t number) {
  std::array<char, 17> digits{};
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr};
}

std::string Machine() {
  std::array<char, 256> host{};
  ::gethostname(host.data(), host.size() - 1);
  std::error_code failed;
  const std::string known =
      host.data() + Contents("/etc/machine-id") + std::filesystem::read_symlink("/proc/self/ns/pid", failed).string();
  std::uint32_t hash = 2166136261U;  // FNV-1a
  for (const char c : known) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return Hex(hash);
}

/// In ticks since the machine started; 0 where there is no such process or the system does not tell.
std::uint64_t StartOf(std::int64_t process) {
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

bool Read(std::string_view digits, int base, std::uint64_t& number) {
  const auto [end, failed] = std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
  return failed == std::errc() && end == digits.data() + digits.size();
}

}  // namespace

const std::string& ProcessMark() {
  static std::string mark;
  static pid_t made = 0;  // a child process is another one
  if (made != ::getpid()) {
    made = ::getpid();
    mark = Machine() + '-' + Hex(static_cast<std::uint64_t>(made)) + '-' + Hex(StartOf(made));
  }
  return mark;
}

bool SurelyEnded(std::string_view mark) {
  const std::size_t first = mark.find('-');
  const std::size_t second = first == mark.npos ? mark.npos : mark.find('-', first + 1);
  if (second == mark.npos || mark.substr(0, first) != Machine()) return false;
  std::uint64_t process = 0;
  std::uint64_t start = 0;
  if (!Read(mark.substr(first + 1, second - first - 1), 16, process) || !Read(mark.substr(second + 1), 16, start))
    return false;
  if (process == 0 || process > 0x7FFFFFFF) return false;
  if (::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH) return true;
  const std::uint64_t now = StartOf(static_cast<std::int64_t>(process));
  return now != 0 && start != 0 && now != start;
}

}  // namespace quorvane::native
