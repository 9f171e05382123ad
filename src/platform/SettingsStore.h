#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// The platform's per-user store: texts addressed by application name, section and key. Any text is kept exactly. What
/// is read reflects what was written at once; what lasts is the state of the last Commit.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// `defaultValue` when the key is missing; a stored empty text is a value. Raises when the store cannot be read.
  virtual std::u16string GetSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                                    std::u16string_view defaultValue) = 0;
  virtual void SaveSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                           std::u16string_view value) = 0;
  /// Removes a section with all its keys; raises error 5 when there is none.
  virtual void DeleteSetting(std::u16string_view appName, std::u16string_view section) = 0;
  /// Makes the writes since the last call last, all of them or, when it raises or the process ends, none.
  virtual void Commit() = 0;
  /// Keeps a copy of what lasts of a section, under a name of its own beside it that no later copy takes, and gives the
  /// place of the copy as a user finds it; empty when there is nothing to keep. Raises when it cannot be kept, and so
  /// does each Commit until it is.
  virtual std::u16string KeepCopy(std::u16string_view appName, std::u16string_view section) = 0;
};

}  // namespace quorvane
