#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "native/settings/SettingsFile.h"
#include "platform/SettingsStore.h"

namespace quorvane::native {

/// The user settings in one file. Written by Commit alone, which leaves what other programs have written since as it
/// is but for the values that were changed here.
class FileSettingsStore final : public SettingsStore {
 public:
  /// `path` is UTF-8; its folder is made when it is needed. Values of the keys `lists` are lines, the newest in front:
  /// what several programs added to one is all kept.
  explicit FileSettingsStore(std::string path, std::set<std::u16string> lists = {u"SearchItem", u"ReplaceItem"});

  /// Raises error 321 for a file that is not such a text, 75 for one that cannot be read, both with its name.
  std::u16string GetSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                            std::u16string_view defaultValue) override;
  void SaveSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) override;
  void DeleteSetting(std::u16string_view appName, std::u16string_view section) override;
  /// Of a file that could not be read a copy is kept, as by KeepCopy. Without changes nothing is written.
  void Commit() override;
  /// Of the whole file, as KeepDamagedCopy names it.
  std::u16string KeepCopy(std::u16string_view appName, std::u16string_view section) override;

 private:
  void MergeWithOthers();

  std::string path_;
  std::set<std::u16string> lists_;
  SettingsFile file_;
  std::vector<SettingsFile::Section> base_;  ///< as the file was read or last written
  bool changed_ = false;
};

}  // namespace quorvane::native
