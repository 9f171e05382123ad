#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "platform/RegistryStore.h"

namespace quorvane::test {

/// A registry in memory. Keys are paths below one root; an open key is a number that stands for its path.
class MemoryRegistry final : public RegistryStore {
 public:
  static constexpr std::int32_t kNotFound = 2;
  static constexpr std::int32_t kMoreData = 234;

  std::int32_t OpenKey(RegistryKey, std::string_view subKey, std::uint32_t access, RegistryKey& result) override {
    if (!Keys.contains(std::string(subKey))) return kNotFound;
    return Open(subKey, access, result);
  }
  std::int32_t CreateKey(RegistryKey, std::string_view subKey, std::uint32_t, std::uint32_t access, bool,
                         RegistryKey& result) override {
    Keys.insert(std::string(subKey));
    return Open(subKey, access, result);
  }
  std::int32_t QueryValue(RegistryKey key, std::string_view name, std::int32_t& type, char* data,
                          std::size_t& size) override {
    const auto found = Values.find({open_.at(key), std::string(name)});
    if (found == Values.end()) return kNotFound;
    const std::string& bytes = found->second.second;
    const bool fits = data == nullptr || size >= bytes.size();
    type = found->second.first;
    size = bytes.size();
    if (fits && data != nullptr) std::copy(bytes.begin(), bytes.end(), data);
    return fits ? 0 : kMoreData;
  }
  std::int32_t SetValue(RegistryKey key, std::string_view name, std::int32_t type, std::string_view data) override {
    Values[{open_.at(key), std::string(name)}] = {type, std::string(data)};
    return 0;
  }
  std::int32_t DeleteValue(RegistryKey key, std::string_view name) override {
    return Values.erase({open_.at(key), std::string(name)}) == 1 ? 0 : kNotFound;
  }
  std::int32_t DeleteKey(RegistryKey key, std::string_view subKey) override {
    return Keys.erase(open_.at(key) + "\\" + std::string(subKey)) == 1 ? 0 : kNotFound;
  }
  std::int32_t CloseKey(RegistryKey key) override {
    if (open_.erase(key) == 0) return kNotFound;
    return CloseStatus;
  }

  std::size_t OpenKeys() const { return open_.size(); }

  std::set<std::string> Keys;
  /// Key path and name to type and bytes.
  std::map<std::pair<std::string, std::string>, std::pair<std::int32_t, std::string>> Values;
  std::uint32_t LastAccess = 0;
  std::int32_t CloseStatus = 0;

 private:
  std::int32_t Open(std::string_view path, std::uint32_t access, RegistryKey& result) {
    LastAccess = access;
    result = ++last_;
    open_[result] = path;
    return 0;
  }

  std::map<RegistryKey, std::string> open_;
  RegistryKey last_ = 100;
};

}  // namespace quorvane::test
