#pragma once

#include <map>
#include <string>

#include "native/settings/IniText.h"
#include "platform/PrivateProfile.h"

namespace quorvane::test {

/// INI files in memory: path to bytes.
class MemoryProfile final : public PrivateProfile {
 public:
  std::size_t Read(std::string_view section, std::string_view key, std::string_view defaultValue, char* buffer,
                   std::size_t size, const std::u16string& file) override {
    const std::string value =
        native::IniText(Files[file]).Get(section, key).value_or(std::string(defaultValue)).substr(0, size - 1);
    std::copy(value.begin(), value.end(), buffer);
    buffer[value.size()] = '\0';
    return value.size();
  }
  bool Write(std::string_view section, std::optional<std::string_view> key, std::optional<std::string_view> value,
             const std::u16string& file) override {
    if (ReadOnly) return false;
    native::IniText text(Files[file]);
    if (!key) {
      text.RemoveSection(section);
    } else if (!value) {
      text.RemoveKey(section, *key);
    } else {
      text.Set(section, *key, *value);
    }
    Files[file] = text.Bytes();
    return true;
  }
  std::u16string KeepCopy(const std::u16string& file) override {
    Files[file + u".damaged"] = Files[file];
    return file + u".damaged";
  }

  std::map<std::u16string, std::string> Files;
  bool ReadOnly = false;
};

}  // namespace quorvane::test
