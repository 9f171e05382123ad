#include "native/files/FileStamp.h"

#include <windows.h>

#include <cerrno>

#include "native/files/windows/HandleStamp.h"
#include "native/files/windows/WideFile.h"

namespace quorvane::native {

std::optional<FileStamp> StampOf(void* file) {
  constexpr std::int64_t kTicks = 10'000'000;  // of a file's time, in a second
  constexpr std::int64_t kNanoseconds = 100;   // in a tick
  const auto wide = [](DWORD high, DWORD low) { return static_cast<std::uint64_t>(high) << 32 | low; };
  BY_HANDLE_FILE_INFORMATION found{};
  if (GetFileInformationByHandle(file, &found) == 0) return std::nullopt;
  const auto ticks =
      static_cast<std::int64_t>(wide(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime));
  return FileStamp{found.dwVolumeSerialNumber, wide(found.nFileIndexHigh, found.nFileIndexLow),
                   static_cast<std::int64_t>(wide(found.nFileSizeHigh, found.nFileSizeLow)), ticks / kTicks,
                   ticks % kTicks * kNanoseconds};
}

std::optional<FileStamp> FileStamp::Of(const std::string& path) {
  const WideHandle file(path, FILE_READ_ATTRIBUTES, FILE_FLAG_BACKUP_SEMANTICS);
  if (file.IsOpen()) {
    if (const auto stamp = StampOf(file.Handle())) return stamp;
  }
  errno = LastErrno();
  return std::nullopt;
}

}  // namespace quorvane::native
