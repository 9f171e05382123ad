#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "addin/core/IVersionUI.h"
#include "addin/core/IniFile.h"
#include "addin/core/StringId.h"
#include "base/Event.h"

namespace quorvane {

/// The texts that a user reads, in the language of the moment. The choice lives in "config.ini" beside the program:
/// read when this is made, written when it goes. A platform without INI files starts in Chinese and writes nothing.
class LanguageManager {
 public:
  /// Raises the conversion error for a number in the file that is none; nothing is written then.
  LanguageManager();
  ~LanguageManager();
  LanguageManager(const LanguageManager&) = delete;
  LanguageManager& operator=(const LanguageManager&) = delete;

  std::int32_t Language = 0;  ///< 0 Chinese (Simplified), 1 English

  /// The text of `id` in the current language, with "%0", "%1" … filled from `args`. An id without a text
  /// raises error 326.
  std::u16string GetString(StringId id, const std::vector<std::u16string>& args = {}) const;

  /// The text as it stands in the table; no value for an id without one. Allocates nothing, raises nothing.
  std::optional<std::u16string_view> Entry(StringId id) const noexcept;

  /// Calls Update of an object that has captions; does nothing with any other, and with nothing.
  template <class Object>
  void UpdateUI(Object* obj) const {
    if (auto* ui = dynamic_cast<IVersionUI*>(obj)) ui->Update();
  }

  /// UpdateUI for every open form, then Changed.
  void UpdateAllUI() const;

  // For a host that looks at the file before the add-in starts.

  static constexpr std::int32_t kLanguages = 2;
  /// The number in the file, which may be that of no language. Raises the conversion error for one that is none, with
  /// key, text and file.
  static std::int32_t Stored();
  /// The line of the file and its path, as that error names them.
  static std::u16string StoredWords();
  /// The path of that file; empty on a platform without one.
  static std::u16string StoredIn();
  /// Puts `language` into the file, of which a copy is kept before; gives the path of the copy, empty without a file.
  /// Raises when the copy cannot be kept, and error 75 when the file cannot be written.
  static std::u16string Replace(std::int32_t language);

  Event<> Changed;  ///< for what has captions and is no form

 private:
  std::optional<IniFile> mobjIni;  ///< no value on a platform without INI files
};

/// GetString of the shared manager; in English where there is none, or none for the language of the moment. For what
/// has to be told while just that may be wrong.
std::u16string TextAtAnyRate(StringId id, const std::vector<std::u16string>& args);

}  // namespace quorvane
