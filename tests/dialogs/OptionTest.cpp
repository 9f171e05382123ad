#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DialogWorld.h"
#include "base/Text.h"
#include "chordtrap/Manager.h"
#include "platform/forms/Forms.h"
#include "services/HotkeyProxy.h"
#include "services/LanguageManager.h"
#include "services/Updater.h"
#include "services/frmOption.h"
#include "support/ErrorOf.h"

namespace quorvane {
namespace {

using chordtrap::kCtrl;

constexpr char16_t kXsl[] = u"<!-- mine -->";

class OptionTest : public test::DialogFixture {
 protected:
  OptionTest() {
    Globals::gobjHotkeyProxy = std::make_shared<HotkeyProxy>();
    GlobalSetting& s = Setting();
    s.mintRelativeLineCount = 7;
    s.menumAutoHideSearchDlg = 1;
    s.menumDefaultSearchTo = 2;
    s.mblnMaximizeWhenLocate = false;
    s.SetXSL(kXsl);
    Globals::gobjUpdater->menumUpdateInterval = 3;
    Globals::gobjUpdater->menumSensibility = 0;
    onProperty_ = s.PropertyChange.Subscribe([this](const std::u16string&) { ++redraws; });
  }
  frmOption& Option() { return dynamic_cast<frmOption&>(*TheForms().Instance(u"frmOption")); }
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

  static constexpr const char* kBefore = "7 3 1 2 0 0 1 Ctrl+Q <!-- mine -->";
  static constexpr const char* kEdited = "-3 4 0 1 1 1 0 Ctrl+Z <!-- yours -->";
  int redraws = 0;

 private:
  Subscription onProperty_;
};

TEST_F(OptionTest, ShowsTheSettingsOnTheFirstTab) {
  frmOption& o = Open();
  EXPECT_EQ(o.txt预览行数->Text(), u"7");
  EXPECT_TRUE(o.optInterval.Value(3));
  EXPECT_TRUE(o.optAutoHideSearchDlg.Value(1));
  EXPECT_TRUE(o.opt默认搜索位置.Value(2));
  EXPECT_EQ(o.chk定位时将代码窗口最大化->Value(), 0);
  EXPECT_EQ(o.TextXsl->Text(), kXsl);
  EXPECT_EQ(o.Slider灵敏度->Value(), 0);
  EXPECT_EQ(o.Combo语言->ListIndex(), 1);
  EXPECT_EQ(o.Combo语言->Text(), u"English");
  EXPECT_EQ(o.ChordTrapControl1.Count(), 5);
  EXPECT_EQ(o.SSTab设定->Tab(), OptionControls::kGeneralTab);
}

TEST_F(OptionTest, OkWithoutAnEditChangesNothing) {
  Dialog().ShowEx();
  Open();
  Dialog().SetCaption(u"not renewed");
  Option().cmd确定->Press();
  EXPECT_EQ(Memory(), kBefore);
  EXPECT_EQ(redraws, 0);
  EXPECT_EQ(Dialog().Caption(), u"not renewed");
  EXPECT_EQ(TheForms().Count(), 1);
}

TEST_F(OptionTest, OkTakesAllEditsAndRenewsTheLanguageEverywhere) {
  Dialog().ShowEx();
  const std::u16string english = Dialog().cmdSearch->Caption();
  Open();
  EditAll();
  EXPECT_EQ(Memory(), "7 3 1 2 0 0 1 Ctrl+Z <!-- mine -->") << "before OK the keys alone";
  Option().cmd确定->Press();
  EXPECT_EQ(Memory(), kEdited);
  EXPECT_EQ(redraws, 1);
  EXPECT_NE(Dialog().cmdSearch->Caption(), english);
  EXPECT_EQ(Dialog().cmdSearch->Caption(), Globals::Language().GetString(118));
  EXPECT_EQ(document->mnuSetOption.Caption(), Globals::Language().GetString(228));
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
    EXPECT_EQ(TheForms().Count(), 0);
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
    EXPECT_EQ(Memory(), "7 3 1 2 0 0 1 Ctrl+Z <!-- mine -->") << ToUtf8(lines) << ": the keys stay";
    EXPECT_EQ(TheForms().Count(), 0);
  }
  Open().txt预览行数->Edit(u"0");
  Option().cmd确定->Press();
  EXPECT_EQ(Setting().mintRelativeLineCount, 0);
}

TEST_F(OptionTest, TheStylesheetsButtons) {
  Open().TextXsl->Edit(u"<x/>");
  Option().cmd应用过滤器->Press();
  EXPECT_EQ(Setting().XSL(), u"<x/>");
  EXPECT_EQ(redraws, 1);
  Option().cmd重置过滤器->Press();
  EXPECT_EQ(Option().TextXsl->Text(), GlobalSetting::DefaultXSL());
  Option().cmd取消->Press();
  EXPECT_EQ(Setting().XSL(), u"<x/>") << "applied for good, the reset dropped";
  Open().TextXsl->Edit(u"");
  Option().cmd确定->Press();
  EXPECT_EQ(Setting().XSL(), u"");
  Open().cmd过滤器帮助->Press();
  EXPECT_EQ(platform.shell.Opened.back(), u"http://" + platform.app.ProjectHost + u"/p/vbquorvane/wiki/Options_Filter");
  Option().cmd恢复默认预览行数->Press();
  EXPECT_EQ(Option().txt预览行数->Text(), u"12");
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

TEST_F(OptionTest, ACheckForUpdatesRunsInFrontOfIt) {
  platform.prompts.Answers = {1};
  platform.loop.Steps = {[&] { Option().cmd检查更新->Press(); },
                         [&] {
                           EXPECT_EQ(TheForms().Item(1)->Name(), u"frmProcessing");
                           EXPECT_TRUE(platform.web.Answer(u"1.0.0.0"));
                         },
                         [&] {
                           EXPECT_TRUE(Option().ShownModal());
                           Option().cmd取消->Press();
                         }};
  Option().Show(FormModal::Modal);
  EXPECT_EQ(TheForms().Count(), 0);
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
  EXPECT_EQ(TheForms().Count(), 0);
}

TEST_F(OptionTest, CaptionsComeFromTheTableInOrder) {
  frmOption& o = Open();
  const auto text = [](std::int32_t id) { return Globals::Language().GetString(id); };
  for (const std::int32_t language : {1, 0}) {
    Globals::Language().Language = language;
    Globals::Language().UpdateUI(&o);
    EXPECT_EQ(o.Caption(), text(218));
    const std::int32_t tabs[] = {123, 145, 149, 260};
    for (std::int16_t tab = 0; tab < 4; ++tab) EXPECT_EQ(o.SSTab设定->TabCaption(tab), text(tabs[tab]));
    const std::vector<std::int32_t> ids = {132, 133, 134, 124, 125, 126, 127, 128, 129, 130, 0,   131, 135, 136,
                                           137, 138, 139, 140, 141, 142, 143, 144, 146, 147, 148, 261, 153, 154};
    std::size_t next = 0;
    for (const auto& control : o.Controls().All()) {
      const auto* captioned = dynamic_cast<const CaptionedControl*>(control.get());
      if (captioned == nullptr || next >= ids.size()) continue;
      const std::u16string expected = ids[next] != 0 ? text(ids[next]) : o.lbl灵敏度->Caption();
      EXPECT_EQ(ToUtf8(captioned->Caption()), ToUtf8(expected)) << ToUtf8(control->Name());
      ++next;
    }
    EXPECT_EQ(next, ids.size());
    EXPECT_EQ(o.ChordTrapControl1.FunctionCaption + o.ChordTrapControl1.HotkeyCaption + o.ChordTrapControl1.AddCaption +
                  o.ChordTrapControl1.RemoveCaption,
              text(259) + text(150) + text(151) + text(152));
    EXPECT_EQ(o.Combo语言->List(0) + o.Combo语言->List(1), text(262) + text(263));
    EXPECT_EQ(o.Combo语言->ListIndex(), -1);
  }
}

TEST_F(OptionTest, ALoadThatFailsIsToldAndOkThenTakesNothing) {
  Globals::gobjUpdater->menumUpdateInterval = 9;
  const std::string before = Memory();
  platform.prompts.Answers = {1};
  EXPECT_TRUE(Open().Visible());
  EXPECT_EQ(platform.prompts.Shown.size(), 1u);
  Option().cmd确定->Press();
  EXPECT_EQ(Memory(), before);
}

}  // namespace
}  // namespace quorvane
