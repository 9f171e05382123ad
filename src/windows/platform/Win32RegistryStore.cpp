#include "windows/platform/Win32RegistryStore.h"

#include <cstdint>
#include <string>

#include "windows/com/Win32.h"

namespace quorvane::windows {

namespace {

HKEY KeyOf(RegistryKey key) {
  return reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(static_cast<std::uint32_t>(key)));
}

RegistryKey NumberOf(HKEY key) {
  return static_cast<RegistryKey>(reinterpret_cast<std::uintptr_t>(key));
}

}  // namespace

std::int32_t Win32RegistryStore::OpenKey(RegistryKey key, std::string_view subKey, std::uint32_t access,
                                         RegistryKey& result) {
  HKEY opened = nullptr;
  const LSTATUS status = ::RegOpenKeyExA(KeyOf(key), std::string(subKey).c_str(), 0, access, &opened);
  if (status == ERROR_SUCCESS) result = NumberOf(opened);
  return status;
}

std::int32_t Win32RegistryStore::CreateKey(RegistryKey key, std::string_view subKey, std::uint32_t options,
                                           std::uint32_t access, bool inheritHandle, RegistryKey& result) {
  SECURITY_ATTRIBUTES security{sizeof(SECURITY_ATTRIBUTES), nullptr, inheritHandle ? TRUE : FALSE};
  HKEY made = nullptr;
  char none[] = "";
  const LSTATUS status =
      ::RegCreateKeyExA(KeyOf(key), std::string(subKey).c_str(), 0, none, options, access, &security, &made, nullptr);
  if (status == ERROR_SUCCESS) result = NumberOf(made);
  return status;
}

std::int32_t Win32RegistryStore::QueryValue(RegistryKey key, std::string_view name, std::int32_t& type, char* data,
                                            std::size_t& size) {
  DWORD kind = REG_NONE;
  auto bytes = static_cast<DWORD>(size);
  const LSTATUS status =
      ::RegQueryValueExA(KeyOf(key), std::string(name).c_str(), nullptr, &kind, reinterpret_cast<BYTE*>(data), &bytes);
  if (status == ERROR_SUCCESS || status == ERROR_MORE_DATA) {
    type = static_cast<std::int32_t>(kind);
    size = bytes;
  }
  return status;
}

std::int32_t Win32RegistryStore::SetValue(RegistryKey key, std::string_view name, std::int32_t type,
                                          std::string_view data) {
  return ::RegSetValueExA(KeyOf(key), std::string(name).c_str(), 0, static_cast<DWORD>(type),
                          reinterpret_cast<const BYTE*>(data.data()), static_cast<DWORD>(data.size()));
}

std::int32_t Win32RegistryStore::DeleteValue(RegistryKey key, std::string_view name) {
  return ::RegDeleteValueA(KeyOf(key), std::string(name).c_str());
}

std::int32_t Win32RegistryStore::DeleteKey(RegistryKey key, std::string_view subKey) {
  return ::RegDeleteKeyA(KeyOf(key), std::string(subKey).c_str());
}

std::int32_t Win32RegistryStore::CloseKey(RegistryKey key) {
  return ::RegCloseKey(KeyOf(key));
}

}  // namespace quorvane::windows
