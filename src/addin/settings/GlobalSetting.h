#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "addin/core/Counted.h"
#include "addin/core/StringCollection.h"
#include "addin/settings/ConditionValues.h"
#include "base/Event.h"

namespace quorvane {

class StoredSection;

/// Which tab takes the results of the next search.
enum SearchTo : std::int32_t { kToNewTab = 0, kToCurTab = 1, kToLastChoice = 2 };

/// When the search dialog hides by itself.
enum AutoHide : std::int32_t { kHideAtBegin = 0, kHideAtEnd = 1, kHideNever = 2 };

/// The shared settings: the preferences, and the live search condition that the search dialog edits. All stored values
/// lie in one section of the user settings store, whose name is the same in every language.
class GlobalSetting : private Counted<GlobalSetting> {
 public:
  static constexpr std::string_view ClassName = "GlobalSetting";

  GlobalSetting();
  ~GlobalSetting();

  std::int16_t mintRelativeLineCount = DefaultRelativeLineCount();  ///< lines around a match in previews
  StringCollection mcolSearchHistory;                               ///< newest first
  StringCollection mcolReplaceHistory;                              ///< newest first
  std::u16string mstrSearchStr;
  std::u16string mstrReplaceStr;
  gsArea menumArea = gsCurProject;
  gsMode menumMode = gsCommon;
  bool mblnMatchCase = false;
  bool mblnRegSingleLine = false;
  gsCommentStat menumIgnoreComment = gsExcludeComment;
  bool mblnWholeWord = false;
  std::int32_t menumAutoHideSearchDlg = kHideNever;  ///< an AutoHide
  std::int32_t menumDefaultSearchTo = kToCurTab;     ///< a SearchTo, for a new connection
  std::int32_t menumSearchTo = kToCurTab;            ///< for the next search: kToNewTab or kToCurTab
  bool mblnMaximizeWhenLocate = true;                ///< maximise the code window when locating a match

  static constexpr std::int16_t DefaultRelativeLineCount() { return 12; }
  static std::u16string DefaultXSL();

  /// Resets the condition, reads the preferences and raises LoadSetting. A stored text that does not convert ends it
  /// there with the conversion error, which names the key: what stands before the key is taken, the store stays as it
  /// is.
  void Load();
  /// Writes all preferences, the newest 50 entries of each history, and raises SaveSetting; then the store is told to
  /// make it last. A step that fails is skipped. An entry with line breaks comes back as several entries.
  void Save();
  /// Keeps a copy of the store as it is before a Save that writes what was not loaded, and gives its place; empty when
  /// nothing is stored. Raises when it cannot be kept; no Save lasts then.
  static std::u16string KeepStored();

  const std::u16string& XSL() const { return mstrXSL; }
  /// Raises PropertyChange when the text differs, in case too.
  void SetXSL(std::u16string_view xsl);

  Event<const std::u16string&, const std::u16string&> SaveSetting;  ///< appname, section
  Event<const std::u16string&, const std::u16string&> LoadSetting;  ///< appname, section
  Event<const std::u16string&> PropertyChange;                      ///< PropName

 private:
  void ResetCondition();
  void LoadPreferences(const StoredSection& stored);
  void SavePreferences(const StoredSection& stored);

  std::u16string mstrXSL = DefaultXSL();
};

}  // namespace quorvane
