// A mark is "machine-process-start". A number of a process comes back some day: the time at which it started tells two
// apart. The machine counts since a folder may be shared.
#include "native/files/ProcessMark.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <system_error>

#include "native/files/RunningProcess.h"

namespace quorvane::native {

namespace {

std::string Hex(std::uint64_t number) {
  std::array<char, 17> digits{};
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr};
}

std::string Machine() {
  std::uint32_t hash = 2166136261U;  // FNV-1a
  for (const char c : MachineText()) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return Hex(hash);
}

bool Read(std::string_view digits, std::uint64_t& number) {
  const auto [end, failed] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  return failed == std::errc() && end == digits.data() + digits.size();
}

}  // namespace

const std::string& ProcessMark() {
  static std::string mark;
  static std::uint64_t made = 0;  // a child process is another one
  if (made != ThisProcess()) {
    made = ThisProcess();
    mark = Machine() + '-' + Hex(made) + '-' + Hex(StartOf(made));
  }
  return mark;
}

bool SurelyEnded(std::string_view mark) {
  const std::size_t first = mark.find('-');
  const std::size_t second = first == mark.npos ? mark.npos : mark.find('-', first + 1);
  if (second == mark.npos || mark.substr(0, first) != Machine()) return false;
  std::uint64_t process = 0;
  std::uint64_t start = 0;
  if (!Read(mark.substr(first + 1, second - first - 1), process) || !Read(mark.substr(second + 1), start)) return false;
  if (process == 0 || process > 0x7FFFFFFF) return false;
  if (IsNoProcess(process)) return true;
  const std::uint64_t now = StartOf(process);
  return now != 0 && start != 0 && now != start;
}

}  // namespace quorvane::native
