#include "native/files/NewFile.h"

#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <utility>
#include <vector>

#include "native/files/Leftovers.h"
#include "native/files/ProcessMark.h"
#include "native/files/windows/WideFile.h"

namespace quorvane::native {

namespace {

/// What is new in the temporary name of each file: six digits, of which `number` fills those at the end.
std::string Digits(unsigned number) {
  std::string digits(6, '0');
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, number /= 36)
    *digit = "0123456789abcdefghijklmnopqrstuvwxyz"[number % 36];
  return digits;
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
  const std::string name = TemporaryPrefix(target_) + ProcessMark() + '-';
  unsigned number = GetTickCount() ^ GetCurrentProcessId() << 16;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    path_ = name + Digits(number++);
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

/// Attributes, date of creation and access list. What a file system does not know of these is no failure.
int NewFile::Dress() {
  const std::wstring target = WidePath(target_);
  const std::wstring fresh = WidePath(path_);
  WIN32_FILE_ATTRIBUTE_DATA like{};
  if (GetFileAttributesExW(target.c_str(), GetFileExInfoStandard, &like) == 0) return 0;
  DWORD length = 0;
  GetFileSecurityW(target.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &length);
  std::vector<std::byte> access(length);
  if (length != 0 && GetFileSecurityW(target.c_str(), DACL_SECURITY_INFORMATION, access.data(), length, &length) != 0)
    SetFileSecurityW(fresh.c_str(), DACL_SECURITY_INFORMATION, access.data());
  SetFileTime(AsHandle(handle_), &like.ftCreationTime, nullptr, nullptr);
  constexpr DWORD kKept =
      FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  if ((like.dwFileAttributes & kKept) != 0) SetFileAttributesW(fresh.c_str(), like.dwFileAttributes & kKept);
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

/// One step of the file system, so that whoever is ended in its midst leaves the old file or the new one: ReplaceFileW
/// would carry more over by itself, but takes two steps, and between them there is no file of that name. A file that is
/// write-protected or that another program holds is left alone from the start, since what comes after a refusal is not
/// the same everywhere.
int MoveOver(const char* from, const char* to) {
  if (!IsReplaceable(to)) return -1;
  const DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  if (MoveFileExW(WidePath(from).c_str(), WidePath(to).c_str(), how) != 0) return 0;
  errno = LastErrno();
  return -1;
}

int FlushFolder(const std::string&) {
  return 0;
}

}  // namespace quorvane::native
