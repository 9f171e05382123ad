#include "windows/com/RegistryKey.h"

#include <vector>

#include "base/Error.h"
#include "windows/com/WideText.h"

namespace quorvane::com {

namespace {

constexpr std::uint32_t kFromWindows = 0x80070000U;

/// An open key, closed at the end of its scope.
class OpenKey {
 public:
  OpenKey(HKEY root, const std::u16string& key, REGSAM access) {
    result = RegOpenKeyExW(root, Wide(key), 0, access, &handle);
  }
  explicit OpenKey(const std::u16string& key, HKEY root) {
    result = RegCreateKeyExW(root, Wide(key), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &handle, nullptr);
  }
  ~OpenKey() {
    if (handle != nullptr) RegCloseKey(handle);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  LSTATUS result = ERROR_SUCCESS;
  HKEY handle = nullptr;
};

void CheckWritten(LSTATUS result, const std::u16string& key) {
  if (result == ERROR_SUCCESS) return;
  throw Error(static_cast<std::int32_t>(kFromWindows | static_cast<std::uint32_t>(result)),
              u"Cannot write to the registry: " + key);
}

void Write(HKEY root, const std::u16string& key, const std::u16string& value, DWORD type, const void* data,
           std::size_t size) {
  const OpenKey open(key, root);
  CheckWritten(open.result, key);
  CheckWritten(
      RegSetValueExW(open.handle, Wide(value), 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size)), key);
}

}  // namespace

std::u16string ReadText(HKEY root, const std::u16string& key, const std::u16string& value) {
  const OpenKey open(root, key, KEY_QUERY_VALUE);
  DWORD size = 0;
  DWORD type = REG_NONE;
  if (open.result != ERROR_SUCCESS) return {};
  if (RegQueryValueExW(open.handle, Wide(value), nullptr, &type, nullptr, &size) != ERROR_SUCCESS) return {};
  if (type != REG_SZ && type != REG_EXPAND_SZ) return {};
  std::vector<char16_t> buffer(size / sizeof(char16_t) + 1, u'\0');
  size = static_cast<DWORD>((buffer.size() - 1) * sizeof(char16_t));
  if (RegQueryValueExW(open.handle, Wide(value), nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()), &size) !=
      ERROR_SUCCESS) {
    return {};
  }
  return std::u16string(buffer.data());
}

void WriteText(HKEY root, const std::u16string& key, const std::u16string& value, const std::u16string& text) {
  Write(root, key, value, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(char16_t));
}

void WriteNumber(HKEY root, const std::u16string& key, const std::u16string& value, std::uint32_t number) {
  Write(root, key, value, REG_DWORD, &number, sizeof(number));
}

void DeleteValue(HKEY root, const std::u16string& key, const std::u16string& value) {
  const OpenKey open(root, key, KEY_SET_VALUE);
  if (open.result == ERROR_SUCCESS) RegDeleteValueW(open.handle, Wide(value));
}

void DeleteKeyIfEmpty(HKEY root, const std::u16string& key) {
  DWORD keys = 0;
  DWORD values = 0;
  {
    const OpenKey open(root, key, KEY_QUERY_VALUE);
    if (open.result != ERROR_SUCCESS) return;
    const LSTATUS told = RegQueryInfoKeyW(open.handle, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                                          nullptr, nullptr, nullptr, nullptr);
    if (told != ERROR_SUCCESS || keys != 0 || values != 0) return;
  }
  RegDeleteKeyW(root, Wide(key));
}

}  // namespace quorvane::com
