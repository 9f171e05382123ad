#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvane {

using RegistryKey = std::int32_t;  ///< a predefined root key or an open key

/// The registry calls of the platform. Each result is a status, 0 for success. Texts are bytes of the ANSI code page.
class RegistryStore {
 public:
  virtual ~RegistryStore() = default;

  virtual std::int32_t OpenKey(RegistryKey key, std::string_view subKey, std::uint32_t access, RegistryKey& result) = 0;
  /// Makes what is missing of the path.
  virtual std::int32_t CreateKey(RegistryKey key, std::string_view subKey, std::uint32_t options, std::uint32_t access,
                                 bool inheritHandle, RegistryKey& result) = 0;
  /// Type and size in bytes of a value, and its bytes when `data` is not null. `size` is in and out; data that does not
  /// fit fails with status 234 and gives the size that it needs.
  virtual std::int32_t QueryValue(RegistryKey key, std::string_view name, std::int32_t& type, char* data,
                                  std::size_t& size) = 0;
  virtual std::int32_t SetValue(RegistryKey key, std::string_view name, std::int32_t type, std::string_view data) = 0;
  virtual std::int32_t DeleteValue(RegistryKey key, std::string_view name) = 0;
  virtual std::int32_t DeleteKey(RegistryKey key, std::string_view subKey) = 0;
  virtual std::int32_t CloseKey(RegistryKey key) = 0;
};

}  // namespace quorvane
