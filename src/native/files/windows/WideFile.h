#pragma once

#include <string>

// What the files of this folder share about Windows' own file functions.
namespace quorvane::native {

/// A path in UTF-8 as the wide functions take it; one that is too long for them gets the prefix that lifts the limit.
std::wstring WidePath(const std::string& path);

/// The same path from its drive or server on, without "." and "..".
std::wstring FullPath(const std::wstring& path);

/// UTF-8 with '/' of a path that the system gave, without such a prefix.
std::string TextOfWide(const std::wstring& path);

/// What C calls the error that GetLastError tells of; EIO for those that have no counterpart.
int LastErrno();

/// Closes its file when it goes.
class WideHandle {
 public:
  /// Opens what exists; `access` and `flags` as CreateFileW takes them. Nobody is kept from the file meanwhile.
  WideHandle(const std::string& path, unsigned long access, unsigned long flags = 0);
  ~WideHandle();
  WideHandle(const WideHandle&) = delete;
  WideHandle& operator=(const WideHandle&) = delete;

  bool IsOpen() const;
  void* Handle() const { return handle_; }

 private:
  void* handle_;
};

}  // namespace quorvane::native
