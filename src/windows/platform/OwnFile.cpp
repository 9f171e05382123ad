#include "windows/platform/OwnFile.h"

#include <shlobj.h>

#include <algorithm>
#include <cstring>

#include "platform/App.h"
#include "windows/forms/WideText.h"
#include "windows/forms/Window.h"

namespace quorvane::windows {

namespace {

constexpr DWORD kSignature = 0xFEEF04BD;  // begins the fixed part of a version

/// The fixed part of this file's version; false when there is none. It is found by its signature, since what stands
/// before it is padded.
bool ReadVersion(VS_FIXEDFILEINFO& version) {
  const HRSRC found = ::FindResourceW(Instance(), MAKEINTRESOURCEW(VS_VERSION_INFO), MAKEINTRESOURCEW(16));
  if (found == nullptr) return false;
  const auto* bytes = static_cast<const unsigned char*>(::LockResource(::LoadResource(Instance(), found)));
  const DWORD size = ::SizeofResource(Instance(), found);
  if (bytes == nullptr || size < sizeof(version)) return false;
  const auto* end = bytes + size - sizeof(version) + 1;
  for (const auto* at = bytes; at < end; at += sizeof(DWORD)) {
    std::memcpy(&version, at, sizeof(version));
    if (version.dwSignature == kSignature) return true;
  }
  return false;
}

}  // namespace

std::u16string OwnPath() {
  std::u16string path(MAX_PATH, u'\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameW(Instance(), Wide(path.data()), static_cast<DWORD>(path.size()));
    if (length == 0) RaiseLastError(u"GetModuleFileName");
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

std::u16string ConfigFolder() {
  wchar_t folder[MAX_PATH];
  if (FAILED(::SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 0, folder))) return {};
  return FromWide(folder) + u"\\Quorvane";
}

void DescribeOwnFile(App& app) {
  const std::u16string path = OwnPath();
  app.Path = path.substr(0, path.find_last_of(u'\\'));
  VS_FIXEDFILEINFO version{};
  if (!ReadVersion(version)) return;
  app.Major = HIWORD(version.dwFileVersionMS);
  app.Minor = LOWORD(version.dwFileVersionMS);
  app.Revision = LOWORD(version.dwFileVersionLS);
}

}  // namespace quorvane::windows
