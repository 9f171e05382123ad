#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

#include "base/Error.h"
#include "platform/SettingsStore.h"

namespace quorvane::test {

/// A user settings store that a test can look into. `Lasting` is what another run would find.
class MemorySettings final : public SettingsStore {
 public:
  using Section = std::map<std::u16string, std::u16string>;
  using Sections = std::map<std::pair<std::u16string, std::u16string>, Section>;

  std::u16string GetSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                            std::u16string_view defaultValue) override {
    const auto found = Now.find({std::u16string(appName), std::u16string(section)});
    if (found == Now.end()) return std::u16string(defaultValue);
    const auto value = found->second.find(std::u16string(key));
    return value == found->second.end() ? std::u16string(defaultValue) : value->second;
  }
  void SaveSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) override {
    if (Refused.contains(std::u16string(key))) RaiseError(ErrorNumber::InvalidProcedureCall);
    Now[{std::u16string(appName), std::u16string(section)}][std::u16string(key)] = value;
  }
  void DeleteSetting(std::u16string_view appName, std::u16string_view section) override {
    if (Now.erase({std::u16string(appName), std::u16string(section)}) == 0) {
      RaiseError(ErrorNumber::InvalidProcedureCall);
    }
  }
  void Commit() override {
    ++Commits;
    Lasting = Now;
  }

  std::u16string KeepCopy(std::u16string_view, std::u16string_view) override {
    Kept = Now;
    return Now.empty() ? u"" : u"(the copy)";
  }

  Sections Now;
  Sections Lasting;
  Sections Kept;                     ///< by the last KeepCopy
  std::set<std::u16string> Refused;  ///< keys that cannot be written
  int Commits = 0;
};

}  // namespace quorvane::test
