#include "addin/settings/GlobalSetting.h"

#include "addin/core/DefaultStylesheet.h"
#include "addin/settings/StoredSection.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "platform/App.h"
#include "platform/Platform.h"
#include "platform/SettingsStore.h"

namespace quorvane {

namespace {

// The starting title, not the title of the moment: that follows the language, and what an English run writes would
// never be found by the next start, which reads before the language has reached the title.
const std::u16string kAppName = kStartingTitle;
const std::u16string kSection = u"Settings";
constexpr std::int32_t kHistoryLimit = 50;

void LoadHistory(StringCollection& history, const std::u16string& text) {
  history.RemoveAll();
  history.AddSplit(text, kCrLf);
}

}  // namespace

GlobalSetting::GlobalSetting() = default;
GlobalSetting::~GlobalSetting() = default;

std::u16string GlobalSetting::DefaultXSL() {
  return std::u16string(DefaultStylesheet());
}

void GlobalSetting::SetXSL(std::u16string_view xsl) {
  if (xsl == mstrXSL) return;
  mstrXSL = xsl;
  PropertyChange.Raise(u"XSL");
}

void GlobalSetting::Load() {
  ResetCondition();
  LoadPreferences(StoredSection(kAppName, kSection));
  LoadSetting.Raise(kAppName, kSection);
}

void GlobalSetting::ResetCondition() {
  menumArea = gsCurProject;
  menumMode = gsCommon;
  menumIgnoreComment = gsExcludeComment;
  mblnWholeWord = false;
  mblnMatchCase = false;
  mblnRegSingleLine = false;
  mstrSearchStr.clear();
  mstrReplaceStr.clear();
}

void GlobalSetting::LoadPreferences(const StoredSection& stored) {
  LoadHistory(mcolSearchHistory, stored.Text(u"SearchItem", u""));
  LoadHistory(mcolReplaceHistory, stored.Text(u"ReplaceItem", u""));
  mintRelativeLineCount = stored.Integer(u"RelativeLineCount", DefaultRelativeLineCount());
  mstrXSL = stored.Text(u"XSL", DefaultXSL());
  if (mstrXSL.empty()) SetXSL(DefaultXSL());
  menumAutoHideSearchDlg = stored.Long(u"AutoHideSearchDlg", kHideNever);
  menumDefaultSearchTo = stored.Long(u"DefaultSearchTo", kToCurTab);
  mblnMaximizeWhenLocate = stored.Boolean(u"MaximizeWhenLocate", true);
  menumSearchTo = menumDefaultSearchTo == kToLastChoice ? stored.Long(u"SearchTo", kToCurTab) : menumDefaultSearchTo;
}

void GlobalSetting::Save() {
  SkipErrors([] { ThePlatform().Settings().DeleteSetting(kAppName, kSection); });
  SkipErrors([&] { SavePreferences(StoredSection(kAppName, kSection)); });
  SkipErrors([&] { SaveSetting.Raise(kAppName, kSection); });
  SkipErrors([] { ThePlatform().Settings().Commit(); });
}

std::u16string GlobalSetting::KeepStored() {
  return ThePlatform().Settings().KeepCopy(kAppName, kSection);
}

void GlobalSetting::SavePreferences(const StoredSection& stored) {
  stored.Write(u"SearchItem", mcolSearchHistory.Join(kCrLf, kHistoryLimit));
  stored.Write(u"ReplaceItem", mcolReplaceHistory.Join(kCrLf, kHistoryLimit));
  stored.Write(u"RelativeLineCount", ToText(mintRelativeLineCount));
  stored.Write(u"XSL", mstrXSL);
  stored.Write(u"AutoHideSearchDlg", ToText(menumAutoHideSearchDlg));
  stored.Write(u"DefaultSearchTo", ToText(menumDefaultSearchTo));
  stored.Write(u"SearchTo", ToText(menumSearchTo));
  stored.Write(u"MaximizeWhenLocate", BooleanText(mblnMaximizeWhenLocate));
}

}  // namespace quorvane
