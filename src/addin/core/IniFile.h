#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Reads and writes keys of one INI file. Holds no text of it: every operation goes to the file. Texts pass through the
/// system's ANSI code page; a character that it lacks becomes "?". Error 445 on a platform without INI files.
class IniFile {
 public:
  void WriteIniKey(std::u16string_view strSection, std::u16string_view strKey, std::u16string_view strValue);
  /// The value, or `strDefault` when file, section or key is missing, without the blanks around it; cut at 1023 bytes.
  std::u16string GetIniKey(std::u16string_view strSection, std::u16string_view strKey,
                           std::u16string_view strDefault = {}) const;

  /// Full path of the file; to be set before the first use.
  const std::u16string& INIFileName() const { return mstrFileName; }
  void SetINIFileName(const std::u16string& path) { mstrFileName = path; }

  /// True if the platform reports success, as in DelIniSec.
  bool DelIniKey(std::u16string_view SectionName, std::u16string_view KeyWord);
  bool DelIniSec(std::u16string_view SectionName);

 private:
  std::u16string mstrFileName;
};

}  // namespace quorvane
