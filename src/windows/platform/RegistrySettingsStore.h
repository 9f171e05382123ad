#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/SettingsStore.h"

namespace quorvane::windows {

/// The user settings in the per-user registry, where every Visual Basic program has them:
/// HKEY_CURRENT_USER\Software\VB and VBA Program Settings\<application>\<section>, a text value a key. Names go in any
/// case, as the registry has it. A section is read at its first use and again after each Commit.
class RegistrySettingsStore final : public SettingsStore {
 public:
  /// `root` is the key of all applications below HKEY_CURRENT_USER.
  explicit RegistrySettingsStore(std::u16string root = u"Software\\VB and VBA Program Settings");

  std::u16string GetSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                            std::u16string_view defaultValue) override;
  void SaveSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) override;
  void DeleteSetting(std::u16string_view appName, std::u16string_view section) override;
  void Commit() override;
  /// As the section "<section>.damaged", or "<section>.damaged-2" and so on where another copy has that name.
  std::u16string KeepCopy(std::u16string_view appName, std::u16string_view section) override;

 private:
  struct NoCase {
    bool operator()(const std::u16string& a, const std::u16string& b) const;
  };
  using Values = std::map<std::u16string, std::u16string, NoCase>;
  struct Section {
    Values values;
    bool exists = false;
    bool changed = false;
  };

  Section& Of(std::u16string_view appName, std::u16string_view section);
  Values Stored(const std::u16string& key) const;
  void Recover();
  void WriteJournal();
  void CarryOut();
  void WriteSection(const std::u16string& key, const Section& section) const;

  std::u16string root_;
  std::map<std::u16string, Section, NoCase> sections_;               ///< by the key below root_
  std::optional<std::pair<std::u16string, std::u16string>> toKeep_;  ///< application and section of a copy still wanted
};

}  // namespace quorvane::windows
