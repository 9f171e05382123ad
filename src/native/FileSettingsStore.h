#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/SettingsStore.h"

namespace quorvane::native {

/// The user settings in one file of UTF-8 text: a line for each section and for each key, what would break a line
/// escaped. Read at the first use; written by Commit alone, through a rename, so that the file is the old or the new
/// one whatever happens. The last of several programs to commit wins.
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
  struct Section {
    std::u16string appName;
    std::u16string name;
    std::vector<std::pair<std::u16string, std::u16string>> values;  ///< invariant: no key twice
  };

  void Require();
  void RequireForWriting();
  void Parse(std::string_view bytes);
  void ParseLine(std::string_view line, std::size_t number);
  [[noreturn]] void FailAt(std::size_t number) const;
  Section* Find(std::u16string_view appName, std::u16string_view section);

  std::string path_;
  std::vector<Section> sections_;
  bool read_ = false;
  bool unreadable_ = false;
  bool changed_ = false;
};

}  // namespace quorvane::native
