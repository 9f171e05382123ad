#pragma once

#include "platform/RegistryStore.h"

namespace quorvane::windows {

/// The registry itself.
class Win32RegistryStore final : public RegistryStore {
 public:
  std::int32_t OpenKey(RegistryKey key, std::string_view subKey, std::uint32_t access, RegistryKey& result) override;
  std::int32_t CreateKey(RegistryKey key, std::string_view subKey, std::uint32_t options, std::uint32_t access,
                         bool inheritHandle, RegistryKey& result) override;
  std::int32_t QueryValue(RegistryKey key, std::string_view name, std::int32_t& type, char* data,
                          std::size_t& size) override;
  std::int32_t SetValue(RegistryKey key, std::string_view name, std::int32_t type, std::string_view data) override;
  std::int32_t DeleteValue(RegistryKey key, std::string_view name) override;
  std::int32_t DeleteKey(RegistryKey key, std::string_view subKey) override;
  std::int32_t CloseKey(RegistryKey key) override;
};

}  // namespace quorvane::windows
