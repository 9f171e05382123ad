#pragma once

#include <string>
#include <string_view>

#include "native/settings/SettingsFile.h"
#include "platform/SettingsStore.h"

namespace quorvane::native {

/// The user settings in one file. Written by Commit alone. The last of several programs to commit wins.
class FileSettingsStore final : public SettingsStore {
 public:
  /// `path` is UTF-8; its folder is made when it is needed.
  explicit FileSettingsStore(std::string path);

  /// Raises error 321 for a file that is not such a text, 75 for one that cannot be read, both with its name.
  std::u16string GetSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                            std::u16string_view defaultValue) override;
  void SaveSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) override;
  void DeleteSetting(std::u16string_view appName, std::u16string_view section) override;
  /// A file that could not be read stays beside the new one as "<path>.damaged". Without changes nothing is written.
  void Commit() override;

 private:
  SettingsFile file_;
  bool changed_ = false;
};

}  // namespace quorvane::native
