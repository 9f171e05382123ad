#include "addin/dialogs/frmOption.h"

#include "addin/connect/HotkeyProxy.h"
#include "addin/connect/Updater.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/Utilities.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Convert.h"
#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "chordtrap/Manager.h"

namespace quorvane {

namespace {

constexpr std::u16string_view kFilterHelpPage = u"/p/vbquorvane/wiki/Options_Filter";
constexpr std::int16_t kTicked = 1;

/// The steps of MemToScreen in their order.
enum Step : std::int32_t {
  kInterval = 1,
  kAutoHide,
  kPreviewLines,
  kStylesheet,
  kDefaultSearchTo,
  kMaximize,
  kSensibility,
  kLanguage,
};

GlobalSetting& Setting() {
  return Deref(Globals::gobjSetting);
}

Updater& TheUpdater() {
  return Deref(Globals::gobjUpdater);
}

chordtrap::Manager& HotkeyManager() {
  return Deref(Deref(Globals::gobjHotkeyProxy).Manager);
}

std::u16string Text(StringId id) {
  return Globals::Language().GetString(id);
}

/// The option of that value; error 9 when the stored value is none.
void Select(forms::OptionGroup& group, std::int32_t value) {
  if (value < 0 || value > std::int32_t{group.Buttons().rbegin()->first}) {
    RaiseError(ErrorNumber::SubscriptOutOfRange);
  }
  group.SetValue(static_cast<std::int16_t>(value), true);
}

template <std::size_t N>
void SetCaptions(const std::array<std::shared_ptr<forms::OptionButton>, N>& buttons, StringId firstId) {
  for (std::size_t i = 0; i < N; ++i) buttons[i]->SetCaption(Text(firstId + static_cast<std::int32_t>(i)));
}

}  // namespace

frmOption::frmOption() : FramedDialog(u"frmOption", forms::FormBorder::FixedDialog, forms::FormStart::CenterScreen) {
  PlaceIn(Controls());
  On(cmd确定->Click, [this] { Unload(); });
  On(cmd取消->Click, [this] { Unload(); });
  On(cmd恢复默认预览行数->Click, [this] { txt预览行数->SetText(ToText(GlobalSetting::DefaultRelativeLineCount())); });
  On(cmd检查更新->Click, [] { TheUpdater().CheckUpdate(); });
  On(cmd应用过滤器->Click, [this] { Setting().SetXSL(TextXsl->Text()); });
  On(cmd重置过滤器->Click, [this] { TextXsl->SetText(GlobalSetting::DefaultXSL()); });
  On(cmd过滤器帮助->Click, [] { Updater::OpenPage(kFilterHelpPage); });
  On(Slider灵敏度->Change, [this] { UpdateSensitivityText(); });
}

frmOption::~frmOption() = default;

void frmOption::Form_Load() {
  filled_ = 0;
  Framed([&] {
    Globals::Language().UpdateUI(this);
    MemToScreen();
    ChordTrapControl1.Attach(HotkeyManager());
    SSTab设定->SetTab(kGeneralTab);
  });
}

void frmOption::Form_Unload(bool&) {
  SkipErrors([&] { ChordTrapControl1.Detach(); });
  SkipErrors([&] {
    if (cmd确定->Value()) {
      ScreenToMem();
    } else {
      HotkeyManager().Revert();
    }
  });
  SkipErrors([] { HotkeyManager().EndEdit(); });  // a load that fails begins none, and its end must revert none
}

void frmOption::MemToScreen() {
  const GlobalSetting& setting = Setting();
  const auto fill = [this](Step step, const auto& body) {
    body();
    filled_ = step;
  };
  fill(kInterval, [&] { Select(optInterval, TheUpdater().menumUpdateInterval); });
  fill(kAutoHide, [&] { Select(optAutoHideSearchDlg, setting.menumAutoHideSearchDlg); });
  fill(kPreviewLines, [&] { txt预览行数->SetText(ToText(setting.mintRelativeLineCount)); });
  fill(kStylesheet, [&] { TextXsl->SetText(setting.XSL()); });
  fill(kDefaultSearchTo, [&] { Select(opt默认搜索位置, setting.menumDefaultSearchTo); });
  fill(kMaximize, [&] { chk定位时将代码窗口最大化->SetValue(setting.mblnMaximizeWhenLocate ? kTicked : 0); });
  fill(kSensibility, [&] { Slider灵敏度->SetValue(TheUpdater().menumSensibility); });
  fill(kLanguage, [&] { Combo语言->SetListIndex(Globals::Language().Language); });
  UpdateSensitivityText();
}

void frmOption::ScreenToMem() {
  GlobalSetting& setting = Setting();
  const Utilities& utilities = Deref(Globals::gobjUtilities);
  const auto take = [this](Step step, const auto& body) {
    if (filled_ >= step) body();
  };
  take(kPreviewLines, [&] { setting.mintRelativeLineCount = ToInteger(txt预览行数->Text()); });
  take(kInterval, [&] { TheUpdater().menumUpdateInterval = utilities.GetOptionIndex(optInterval); });
  take(kAutoHide, [&] { setting.menumAutoHideSearchDlg = utilities.GetOptionIndex(optAutoHideSearchDlg); });
  take(kStylesheet, [&] { setting.SetXSL(TextXsl->Text()); });
  take(kDefaultSearchTo, [&] { setting.menumDefaultSearchTo = utilities.GetOptionIndex(opt默认搜索位置); });
  take(kMaximize, [&] { setting.mblnMaximizeWhenLocate = chk定位时将代码窗口最大化->Value() == kTicked; });
  take(kSensibility, [&] { TheUpdater().menumSensibility = Slider灵敏度->Value(); });
  take(kLanguage, [&] {
    LanguageManager& language = Globals::Language();
    const std::int32_t chosen = Combo语言->ListIndex();
    if (chosen < 0 || chosen == language.Language) return;  // new captions leave no language picked
    language.Language = chosen;
    language.UpdateAllUI();
  });
}

void frmOption::UpdateSensitivityText() {
  const std::int32_t position = Slider灵敏度->Value();
  if (position >= 0 && position <= 2) {
    lbl灵敏度->SetCaption(Text(StringId::SensitivityLow + 2 * position));
    Slider灵敏度->SetText(Text(StringId::SensitivityLowTip + 2 * position));
  }
  lbl灵敏度->SetToolTipText(Slider灵敏度->Text());
}

void frmOption::Update() {
  SetCaption(Text(StringId::OptionsTitle));
  UpdateGeneralTab();
  UpdateOtherTabs();
  cmd确定->SetCaption(Text(StringId::OptionsOk));
  cmd取消->SetCaption(Text(StringId::OptionsCancel));
}

void frmOption::UpdateGeneralTab() {
  SSTab设定->SetTabCaption(kGeneralTab, Text(StringId::GeneralTab));
  Frame代码预览->SetCaption(Text(StringId::CodePreview));
  lbl预览行数->SetCaption(Text(StringId::PreviewLines));
  cmd恢复默认预览行数->SetCaption(Text(StringId::RestorePreviewLines));
  Frame更新->SetCaption(Text(StringId::Update));
  Frame自动检查更新->SetCaption(Text(StringId::AutoCheckUpdate));
  SetCaptions(optIntervalButtons, StringId::UpdateAtEachStart);
  cmd检查更新->SetCaption(Text(StringId::CheckUpdateNow));
  Frame自动隐藏搜索框->SetCaption(Text(StringId::AutoHide));
  SetCaptions(optAutoHideSearchDlgButtons, StringId::HideAtBegin);
  Frame默认搜索位置->SetCaption(Text(StringId::DefaultSearchTo));
  SetCaptions(opt默认搜索位置Buttons, StringId::DefaultToNewTab);
  Frame定位选项->SetCaption(Text(StringId::LocateOption));
  chk定位时将代码窗口最大化->SetCaption(Text(StringId::MaximizeWhenLocate));
}

void frmOption::UpdateOtherTabs() {
  SSTab设定->SetTabCaption(kFilterTab, Text(StringId::FilterTab));
  cmd应用过滤器->SetCaption(Text(StringId::ApplyFilter));
  cmd重置过滤器->SetCaption(Text(StringId::ResetFilter));
  cmd过滤器帮助->SetCaption(Text(StringId::FilterHelp));
  SSTab设定->SetTabCaption(kHotkeyTab, Text(StringId::HotkeyTab));
  ChordTrapControl1.FunctionCaption = Text(StringId::Function);
  ChordTrapControl1.HotkeyCaption = Text(StringId::Hotkey);
  ChordTrapControl1.AddCaption = Text(StringId::AddHotkey);
  ChordTrapControl1.RemoveCaption = Text(StringId::RemoveHotkey);
  ChordTrapControl1.Changed.Raise();
  SSTab设定->SetTabCaption(kLanguageTab, Text(StringId::LanguageTab));
  Frame选择语言->SetCaption(Text(StringId::ChooseLanguage));
  Combo语言->Clear();
  Combo语言->AddItem(Text(StringId::Chinese));
  Combo语言->AddItem(Text(StringId::English));
}

}  // namespace quorvane
