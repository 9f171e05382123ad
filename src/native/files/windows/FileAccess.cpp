#include "native/files/FileAccess.h"

#include <windows.h>

#include <cerrno>

#include "native/files/windows/WideFile.h"

namespace quorvane::native {

bool CanWrite(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(WidePath(path).c_str());
  const bool folder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const WideHandle opened(path, folder ? FILE_ADD_FILE : GENERIC_WRITE, folder ? FILE_FLAG_BACKUP_SEMANTICS : 0);
  if (!opened.IsOpen()) errno = LastErrno();
  return opened.IsOpen();
}

std::string RealPath(const std::string& path) {
  const WideHandle file(path, FILE_READ_ATTRIBUTES, FILE_FLAG_BACKUP_SEMANTICS);
  if (!file.IsOpen()) return {};
  std::wstring real(GetFinalPathNameByHandleW(file.Handle(), nullptr, 0, 0), L'\0');
  real.resize(GetFinalPathNameByHandleW(file.Handle(), real.data(), static_cast<DWORD>(real.size()), 0));
  return TextOfWide(real.empty() ? FullPath(WidePath(path)) : real);  // some refuse a long one
}

}  // namespace quorvane::native
