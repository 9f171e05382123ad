#include <gtest/gtest.h>

#include <algorithm>

#include "DialogWorld.h"
#include "addin/connect/HotkeyProxy.h"
#include "addin/connect/Updater.h"
#include "addin/core/LanguageManager.h"
#include "addin/dialogs/frmOption.h"
#include "chordtrap/Manager.h"
#include "platform/forms/Forms.h"

namespace quorvane {
namespace {

using chordtrap::kCtrl;

constexpr char16_t kXsl[] = u"<!-- mine -->";

class OptionTest : public test::DialogFixture {
 protected:
  OptionTest() {
    Globals::gobjHotkeyProxy = std::make_shared<HotkeyProxy>();
    Reset();
    onProperty_ = Setting().PropertyChange.Subscribe([this](const std::u16string&) { ++redraws; });
  }
  void Reset() {
    GlobalSetting& s = Setting();
    s.mintRelativeLineCount = 7;
    s.menumAutoHideSearchDlg = 1;
    s.menumDefaultSearchTo = 2;
    s.mblnMaximizeWhenLocate = true;
    s.SetXSL(kXsl);
    Globals::gobjUpdater->menumUpdateInterval = 3;
    Globals::gobjUpdater->menumSensibility = 0;
  }
  frmOption& Option() { return dynamic_cast<frmOption&>(*forms::TheForms().Instance(u"frmOption")); }
  frmOption& Open() {
    Option().Show();
    return Option();
  }
  /// Changes everything there is to change.
  void EditAll() {
    frmOption& o = Option();
    o.txt预览行数->Edit(u" -3 ");
    o.optIntervalButtons[4]->Press();
    o.optAutoHideSearchDlgButtons[0]->Press();
    o.TextXsl->Edit(u"<!-- yours -->");
    o.opt默认搜索位置Buttons[1]->Press();
    o.chk定位时将代码窗口最大化->Press();
    o.Slider灵敏度->Drag(1);
    o.Combo语言->Pick(0);
    o.ChordTrapControl1.Select(1);
    o.ChordTrapControl1.Press({90, kCtrl});
    o.ChordTrapControl1.Add();
  }
  /// The tabs, the words of the key editor, the languages.
  std::u16string OtherWords() {
    frmOption& o = Option();
    std::u16string all;
    for (std::int16_t tab = 0; tab < 4; ++tab) all += o.SSTab设定->TabCaption(tab) + u"|";
    const auto& keys = o.ChordTrapControl1;
    return all + keys.FunctionCaption + u"|" + keys.HotkeyCaption + u"|" + keys.AddCaption + u"|" + keys.RemoveCaption +
           u"|" + o.Combo语言->List(0) + u"|" + o.Combo语言->List(1);
  }
  /// "lines interval hide to maximize sensibility language key xsl".
  std::string Memory() {
    std::string all;
    for (const std::int32_t value : {std::int32_t{Setting().mintRelativeLineCount},
                                     Globals::gobjUpdater->menumUpdateInterval, Setting().menumAutoHideSearchDlg,
                                     Setting().menumDefaultSearchTo, std::int32_t{Setting().mblnMaximizeWhenLocate},
                                     Globals::gobjUpdater->menumSensibility, Globals::Language().Language}) {
      all += std::to_string(value) + " ";
    }
    return all + ToUtf8(chordtrap::KeyText(Globals::gobjHotkeyProxy->Manager->Items()[1]->Key)) + " " +
           ToUtf8(Setting().XSL());
  }

  static constexpr const char* kBefore = "7 3 1 2 1 0 1 Ctrl+Q <!-- mine -->";
  static constexpr const char* kEdited = "-3 4 0 1 0 1 0 Ctrl+Z <!-- yours -->";
  int redraws = 0;

 private:
  Subscription onProperty_;
};

TEST_F(OptionTest, OkWithoutAnEditChangesNothing) {
  Dialog().ShowEx();
  Open();
  Dialog().SetCaption(u"not renewed");
  Option().cmd确定->Press();
  EXPECT_EQ(Memory(), kBefore);
  EXPECT_EQ(redraws, 0);
  EXPECT_EQ(Dialog().Caption(), u"not renewed");
  EXPECT_EQ(forms::TheForms().Count(), 1);
}

TEST_F(OptionTest, OkTakesAllEditsAndRenewsTheLanguageEverywhere) {
  Dialog().ShowEx();
  const std::u16string english = Dialog().cmdSearch->Caption();
  int told = 0;
  const auto onChange = Globals::Language().Changed.Subscribe([&] { ++told; });
  Open();
  EditAll();
  EXPECT_EQ(Memory(), "7 3 1 2 1 0 1 Ctrl+Z <!-- mine -->") << "before OK the keys alone";
  Option().cmd确定->Press();
  EXPECT_EQ(Memory(), kEdited);
  EXPECT_EQ(redraws, 1);
  EXPECT_NE(Dialog().cmdSearch->Caption(), english);
  EXPECT_EQ(Dialog().cmdSearch->Caption(), Globals::Language().GetString(StringId::Search));
  EXPECT_EQ(told, 1) << "what is no form follows too";
  EXPECT_EQ(Setting().menumSearchTo, 1) << "the default counts at the next start";
  EXPECT_EQ(ToUtf8(Open().Combo语言->Text()), "中文(简体)") << "every show starts from the current values";
}

TEST_F(OptionTest, EveryOtherWayOutDropsTheEdits) {
  for (const bool byFrame : {false, true}) {
    Open();
    EditAll();
    if (byFrame) {
      EXPECT_TRUE(Option().CloseByUser());
    } else {
      Option().cmd取消->Press();
    }
    EXPECT_EQ(Memory(), kBefore);
    EXPECT_EQ(forms::TheForms().Count(), 0);
  }
  EXPECT_EQ(redraws, 0);
}

TEST_F(OptionTest, LinesThatAreNoNumberDropAllEditsInSilence) {
  for (const char16_t* lines : {u"many", u"", u"32768", u"-32769", u"1 2"}) {
    Setting().SetXSL(kXsl);
    Open();
    EditAll();
    Option().txt预览行数->Edit(lines);
    Option().cmd确定->Press();
    EXPECT_EQ(Memory(), "7 3 1 2 1 0 1 Ctrl+Z <!-- mine -->") << ToUtf8(lines) << ": the keys stay";
    EXPECT_EQ(forms::TheForms().Count(), 0);
  }
  Open().txt预览行数->Edit(u"0");
  Option().cmd确定->Press();
  EXPECT_EQ(Setting().mintRelativeLineCount, 0);
}

TEST_F(OptionTest, TheStylesheetMayBeEmpty) {
  Open().TextXsl->Edit(u"");
  Option().cmd确定->Press();
  EXPECT_EQ(Setting().XSL(), u"");
}

TEST_F(OptionTest, TheSliderExplainsItself) {
  frmOption& o = Open();
  const auto texts = [&] {
    EXPECT_EQ(o.lbl灵敏度->ToolTipText(), o.Slider灵敏度->Text());
    return ToUtf8(o.lbl灵敏度->Caption() + u"|" + o.Slider灵敏度->Text());
  };
  const char* const kTexts[] = {
      "Sensitivity:low(Major)|Only prompt when major version number is changed",
      "Sensitivity:mediam(Minor)|Only prompt when major or minor version number is changed",
      "Sensitivity:high(Build)|Prompt when major, minor or reversion version number is changed"};
  for (const std::int32_t position : {0, 1, 2, 9, -1}) {
    o.Slider灵敏度->Drag(position);
    EXPECT_EQ(texts(), kTexts[o.Slider灵敏度->Value()]);
  }
  EXPECT_EQ(Globals::gobjUpdater->menumSensibility, 0) << "not before OK";
}

TEST_F(OptionTest, KeysOfTheForm) {
  frmOption& o = Open();
  for (const std::int16_t key : {std::int16_t{13}, std::int16_t{27}}) EXPECT_FALSE(o.PressKey(key, 0));
  EXPECT_FALSE(o.PressAccessKey(u'a')) << "Apply lies on another tab";
  o.SSTab设定->Pick(OptionControls::kFilterTab);
  o.TextXsl->Edit(u"<x/>");
  EXPECT_TRUE(o.PressAccessKey(u'a'));
  EXPECT_EQ(redraws, 1);
  EXPECT_FALSE(o.PressAccessKey(u'u'));
  EXPECT_TRUE(o.PressAccessKey(u'c'));
  EXPECT_EQ(forms::TheForms().Count(), 0);
}

TEST_F(OptionTest, EachControlLiesInItsFrameOrOnItsTab) {
  const auto rows = test::Rows("dialogs/Option.rows", "Places");
  for (const test::Row& row : rows) {
    const auto control = Open().Controls().Item(row.Text(0));
    const auto container = control->Container();
    const auto frame = std::dynamic_pointer_cast<forms::Frame>(container);
    EXPECT_EQ(frame ? ToUtf8(frame->Name()) : container ? "a tab" : "", row.Bytes(1)) << row.Where();
    EXPECT_TRUE(!frame || std::ranges::count(frame->Children(), control) == 1) << row.Where();
  }
  EXPECT_EQ(Option().Controls().Count(), static_cast<std::int32_t>(rows.size()));
}

TEST_F(OptionTest, CaptionsInBothLanguages) {
  frmOption& o = Open();
  EXPECT_EQ(test::Captions(o),
            "Quorvane Options|Code preview|Preview Lines|Restore|Update|Auto check update|Every launch|Every day|"
            "Every week|Every month|Never check|Sensitivity:low(Major)Only prompt when major version number is changed|"
            "Check for &update now...|Auto hide|After search began|After search finished|Never hide|"
            "Default tab behavior|To new tab|To current tab|Save last choice|Locate option|"
            "Maximize code window when locate|&Apply|&Reset|&Help|Please choose your language|&Ok|&Cancel");
  EXPECT_EQ(ToUtf8(OtherWords()),
            "General|Filter|Hotkey|Language|Function|Hotkey|Add|Remove|Chinese(Simplified)|English");
  Globals::Language().Language = 0;
  Globals::Language().UpdateUI(&o);
  EXPECT_EQ(ToUtf8(OtherWords()), "通用|过滤器|热键|语言|功能|热键|添加|移除|中文(简体)|英文");
  EXPECT_EQ(o.Combo语言->ListIndex(), -1);
}

TEST_F(OptionTest, AfterALoadThatFailsOkTakesWhatWasFilledAlone) {
  std::int32_t* const settings[] = {&Globals::gobjUpdater->menumUpdateInterval, &Setting().menumAutoHideSearchDlg,
                                    &Setting().menumDefaultSearchTo};
  const char* const edited[] = {"7 9 1 2 1 0 1 Ctrl+Q <!-- mine -->", "7 4 9 2 1 0 1 Ctrl+Q <!-- mine -->",
                                "-3 4 0 9 1 0 1 Ctrl+Q <!-- yours -->"};
  for (std::size_t step = 0; step < std::size(settings); ++step) {
    for (const bool edits : {false, true}) {
      SCOPED_TRACE(std::to_string(step) + (edits ? " edited" : ""));
      Reset();
      *settings[step] = 9;
      const std::string before = Memory();
      platform.prompts.Answers = {1};
      platform.prompts.Shown.clear();
      EXPECT_TRUE(Open().Visible());
      EXPECT_EQ(platform.prompts.Shown.size(), 1u);
      if (edits) {
        EXPECT_EQ(test::Raised([this] { EditAll(); }), 9) << "there are no keys to edit";
      }
      Option().cmd确定->Press();
      EXPECT_EQ(Memory(), edits ? edited[step] : before);
    }
  }
}

}  // namespace
}  // namespace quorvane
