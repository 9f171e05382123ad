#include "native/files/NewFile.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <utility>

#include "native/files/windows/WideFile.h"

namespace quorvane::native {

namespace {

/// Leaves room for the rest of a temporary name within the 255 units of a file name. A name is cut between characters.
constexpr std::size_t kLongestName = 200;

std::string NameBeside(const std::string& target, unsigned number) {
  const std::size_t name = target.find_last_of("/\\") + 1;
  std::size_t end = std::min(target.size(), name + kLongestName);
  while (end < target.size() && (static_cast<unsigned char>(target[end]) & 0xC0U) == 0x80U) --end;
  std::array<char, 8> digits{};
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number, 36);
  return target.substr(0, name) + "." + target.substr(name, end - name) + ".quorvane-" +
         std::string(digits.data(), written.ptr);
}

HANDLE AsHandle(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

/// A file that is not there yet is. False with errno set.
bool IsReplaceable(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(WidePath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return true;
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    errno = EACCES;
    return false;
  }
  const WideHandle held(path, GENERIC_READ | DELETE);
  if (held.IsOpen() || GetLastError() != ERROR_SHARING_VIOLATION) return true;
  errno = EBUSY;
  return false;
}

}  // namespace

NewFile::NewFile(std::string target) : target_(std::move(target)) {
  constexpr int kAttempts = 100;
  unsigned number = GetTickCount() ^ GetCurrentProcessId() << 16;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    path_ = NameBeside(target_, number++);
    const HANDLE file = CreateFileW(WidePath(path_).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    exists_ = file != INVALID_HANDLE_VALUE;
    handle_ = reinterpret_cast<std::intptr_t>(file);
    made_ = exists_ ? 0 : LastErrno();
    if (made_ != EEXIST) return;
  }
}

NewFile::~NewFile() {
  if (handle_ != -1) CloseHandle(AsHandle(handle_));
  if (exists_) DeleteFileW(WidePath(path_).c_str());
}

int NewFile::Write(std::string_view bytes) {
  constexpr std::size_t kPiece = std::size_t{1} << 24;
  while (!bytes.empty()) {
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kPiece));
    if (WriteFile(AsHandle(handle_), bytes.data(), wanted, &count, nullptr) == 0) return LastErrno();
    if (count == 0) return ENOSPC;
    bytes.remove_prefix(count);
  }
  return 0;
}

int NewFile::Dress() {
  return 0;
}

int NewFile::Finish() {
  int error = FlushFileBuffers(AsHandle(handle_)) != 0 ? 0 : LastErrno();
  if (CloseHandle(AsHandle(std::exchange(handle_, -1))) == 0 && error == 0) error = LastErrno();
  return error;
}

int NewFile::TakePlace() {
  if (MoveOver(path_.c_str(), target_.c_str()) != 0) return errno;
  Moved();
  return 0;
}

/// ReplaceFileW carries attributes, access list and date of creation over. Not every file system can: there the new
/// file comes as it is. A file that is write-protected or that another program holds is left alone from the start,
/// since what comes after a refusal is not the same everywhere.
int MoveOver(const char* from, const char* to) {
  const std::wstring source = WidePath(from);
  const std::wstring target = WidePath(to);
  if (!IsReplaceable(to)) return -1;
  if (ReplaceFileW(target.c_str(), source.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0)
    return 0;
  if (MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) return 0;
  errno = LastErrno();
  return -1;
}

int FlushFolder(const std::string&) {
  return 0;
}

}  // namespace quorvane::native
