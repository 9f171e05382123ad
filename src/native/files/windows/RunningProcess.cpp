#include "native/files/RunningProcess.h"

#include <windows.h>

#include <array>

namespace quorvane::native {

namespace {

/// A process of this number, closed with this; none where it may not be asked.
class Asked {
 public:
  explicit Asked(std::uint64_t process)
      : handle_(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process))),
        error_(handle_ != nullptr ? ERROR_SUCCESS : GetLastError()) {}
  ~Asked() {
    if (handle_ != nullptr) CloseHandle(handle_);
  }
  Asked(const Asked&) = delete;
  Asked& operator=(const Asked&) = delete;

  /// Whether it has ended, or none is known. A process stays known as long as somebody holds a handle of it.
  bool IsGone() const {
    DWORD code = STILL_ACTIVE;
    if (handle_ == nullptr) return error_ == ERROR_INVALID_PARAMETER;
    return GetExitCodeProcess(handle_, &code) != 0 && code != STILL_ACTIVE;
  }
  std::uint64_t Start() const {
    FILETIME start{}, end{}, kernel{}, user{};
    if (handle_ == nullptr || GetProcessTimes(handle_, &start, &end, &kernel, &user) == 0) return 0;
    return std::uint64_t{start.dwHighDateTime} << 32U | start.dwLowDateTime;
  }

 private:
  HANDLE handle_;
  DWORD error_;
};

}  // namespace

/// Its name, and the id that was made when the system was installed.
std::string MachineText() {
  std::array<char, 256> name{};
  DWORD length = name.size();
  GetComputerNameA(name.data(), &length);
  std::array<char, 256> id{};
  DWORD bytes = id.size() - 1;
  constexpr char kPlace[] = R"(SOFTWARE\Microsoft\Cryptography)";
  HKEY key = nullptr;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kPlace, 0, KEY_READ | KEY_WOW64_64KEY, &key) == ERROR_SUCCESS) {
    RegQueryValueExA(key, "MachineGuid", nullptr, nullptr, reinterpret_cast<BYTE*>(id.data()), &bytes);
    RegCloseKey(key);
  }
  return std::string(name.data()) + id.data();
}

std::uint64_t ThisProcess() {
  return GetCurrentProcessId();
}

std::uint64_t StartOf(std::uint64_t process) {
  return Asked(process).Start();
}

bool IsNoProcess(std::uint64_t process) {
  return Asked(process).IsGone();
}

}  // namespace quorvane::native
