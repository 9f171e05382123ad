#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane::native {

/// Sections of keys and texts in one file of UTF-8: a line for each section and for each key, what would break a line
/// escaped. Read once, at the first use; written whole, through a rename, so that the file is the old or the new one
/// whatever happens.
class SettingsFile {
 public:
  struct Section {
    std::u16string group;  ///< what the section belongs to, such as an application
    std::u16string name;
    std::vector<std::pair<std::u16string, std::u16string>> values;  ///< key and text
  };

  /// `path` is UTF-8; its folder is made when it is needed. A file that does not exist has no sections.
  explicit SettingsFile(std::string path);

  /// The sections, to be changed in place. Raises error 321 for a file that is not such a text, 75 for one that cannot
  /// be read, both with its name.
  std::vector<Section>& Read();
  /// The same for whoever is about to write: a file that cannot be read has no sections, and the next Write keeps a
  /// copy of it.
  std::vector<Section>& ReadOrReplace();
  /// Raises as WriteFileWhole does, for a folder that cannot be made, or for a copy that is still to be kept and cannot
  /// be; the file and the sections then stay as they are.
  void Write();
  /// KeepDamagedCopy of the file as it lies on the disk. When that raises each Write tries again.
  std::string KeepCopy();

 private:
  void Parse(std::string_view bytes);
  void ParseLine(std::string_view line, std::size_t number);
  [[noreturn]] void FailAt(std::size_t number) const;

  std::string path_;
  std::vector<Section> sections_;
  bool read_ = false;
  bool toKeep_ = false;  ///< a copy of the file is wanted before anything is written over it
};

}  // namespace quorvane::native
