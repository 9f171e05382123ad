#include "native/files/windows/WideFile.h"

#include <windows.h>

#include <algorithm>
#include <cerrno>

#include "base/Text.h"

namespace quorvane::native {

namespace {

constexpr DWORD kDiskQuotaExceeded = 1295;  // ERROR_DISK_QUOTA_EXCEEDED, which older headers lack

constexpr std::size_t kLongest = 240;  // below MAX_PATH by what a temporary name adds
constexpr std::wstring_view kPrefix = LR"(\\?\)";
constexpr std::wstring_view kServerPrefix = LR"(\\?\UNC\)";

}  // namespace

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

std::wstring WidePath(const std::string& path) {
  const std::u16string text = FromUtf8(path);
  std::wstring wide(text.begin(), text.end());
  std::replace(wide.begin(), wide.end(), L'/', L'\\');
  if (wide.size() < kLongest || wide.starts_with(kPrefix)) return wide;
  const std::wstring full = FullPath(wide);
  if (full.starts_with(LR"(\\)")) return std::wstring(kServerPrefix) + full.substr(2);
  return std::wstring(kPrefix) + full;
}

std::string TextOfWide(const std::wstring& path) {
  std::u16string text(path.begin(), path.end());
  if (path.starts_with(kServerPrefix)) {
    text = u"\\\\" + text.substr(kServerPrefix.size());
  } else if (path.starts_with(kPrefix)) {
    text.erase(0, kPrefix.size());
  }
  std::replace(text.begin(), text.end(), u'\\', u'/');
  return ToUtf8(text);
}

int LastErrno() {
  switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_NETWORK_ACCESS_DENIED:
      return EACCES;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
      return EBUSY;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case kDiskQuotaExceeded:
      return ENOSPC;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_TOO_MANY_OPEN_FILES:
      return EMFILE;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return ENOMEM;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    case ERROR_NO_DATA:
    case ERROR_BROKEN_PIPE:
      return EPIPE;
    default:
      return EIO;
  }
}

WideHandle::WideHandle(const std::string& path, unsigned long access, unsigned long flags)
    : handle_(CreateFileW(WidePath(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                          nullptr, OPEN_EXISTING, flags, nullptr)) {}

WideHandle::~WideHandle() {
  if (IsOpen()) CloseHandle(handle_);
}

bool WideHandle::IsOpen() const {
  return handle_ != INVALID_HANDLE_VALUE;
}

}  // namespace quorvane::native
