#include <gtest/gtest.h>

#include "addin/connect/HotkeyProxy.h"
#include "addin/connect/Updater.h"
#include "addin/core/Globals.h"
#include "addin/settings/GlobalSetting.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/TestPlatform.h"

namespace quorvane::test {

namespace {
const std::pair<std::u16string, std::u16string> kWhere{u"Quorvane插件", u"Settings"};
}

/// The objects with settings, made and connected anew by Connect as at the start of a run.
class GlobalSettingTest : public ::testing::Test {
 protected:
  GlobalSettingTest() { Connect(); }
  ~GlobalSettingTest() override { Disconnect(); }

  void Connect() {
    platform.app.Title = kStartingTitle;
    Globals::gobjSetting = std::make_shared<GlobalSetting>();
    updater = std::make_unique<Updater>();
    hotkeys = std::make_unique<HotkeyProxy>();
    updater->Setup();
    hotkeys->Setup();
  }
  void Disconnect() {
    updater->TearDown();
    hotkeys->TearDown();
    updater.reset();
    hotkeys.reset();
  }
  GlobalSetting& Setting() { return *Globals::gobjSetting; }
  MemorySettings::Section& Stored() { return platform.settings.Now[kWhere]; }

  TestPlatform platform;
  std::unique_ptr<Updater> updater;
  std::unique_ptr<HotkeyProxy> hotkeys;
};

TEST_F(GlobalSettingTest, FirstRun) {
  Setting().mstrSearchStr = u"left over";
  Setting().mblnWholeWord = Setting().mblnMatchCase = Setting().mblnRegSingleLine = true;
  Setting().menumArea = gsSelection;
  Setting().mcolSearchHistory.Add(u"left over");
  int changes = 0;
  const Subscription heard = Setting().PropertyChange.Subscribe([&](const auto&) { ++changes; });
  Setting().Load();
  EXPECT_EQ(Setting().mstrSearchStr, u"");
  EXPECT_EQ(Setting().menumArea, gsCurProject);
  EXPECT_FALSE(Setting().mblnWholeWord || Setting().mblnMatchCase || Setting().mblnRegSingleLine);
  EXPECT_EQ(Setting().mcolSearchHistory.Count(), 0);
  EXPECT_EQ(changes, 0);
  Setting().Save();
  const MemorySettings::Section expected{{u"SearchItem", u""},
                                         {u"ReplaceItem", u""},
                                         {u"RelativeLineCount", u"12"},
                                         {u"XSL", GlobalSetting::DefaultXSL()},
                                         {u"AutoHideSearchDlg", u"2"},
                                         {u"DefaultSearchTo", u"1"},
                                         {u"SearchTo", u"1"},
                                         {u"MaximizeWhenLocate", u"True"},
                                         {u"UpdateInterval", u"2"},
                                         {u"LastUpdate", u"15.05.2024"},
                                         {u"UpdateSensibility", u"2"},
                                         {u"ShowSearchDialog", u"Ctrl+Q"},
                                         {u"LocatePrevResult", u"Ctrl+,"},
                                         {u"LocateNextResult", u"Ctrl+."},
                                         {u"ShowResultList", u""},
                                         {u"RefreshResult", u""}};
  EXPECT_EQ(platform.settings.Lasting, (MemorySettings::Sections{{kWhere, expected}}));
  EXPECT_EQ(platform.settings.Commits, 1);
}

TEST_F(GlobalSettingTest, HistoriesAreCutAndSplit) {
  for (int i = 1; i <= 60; ++i) Setting().mcolSearchHistory.Add(ToText(i));
  Setting().mcolReplaceHistory.Add(u"a\r\n\r\nb");
  Setting().mcolReplaceHistory.Add(u"");
  Setting().mcolReplaceHistory.Add(u"c");
  Setting().Save();
  EXPECT_EQ(Setting().mcolSearchHistory.Count(), 60);
  Setting().Load();
  EXPECT_EQ(Setting().mcolSearchHistory.Count(), 50);
  EXPECT_EQ(Setting().mcolSearchHistory.Item(50), u"50");
  EXPECT_EQ(Setting().mcolReplaceHistory.Join(u"|"), u"a|b|c");
}

TEST_F(GlobalSettingTest, OnlyTheLastChoiceIsReadBack) {
  for (const auto& [chosen, starts] : {std::pair(u"0", 0), {u"1", 1}, {u"2", 5}}) {
    Stored() = {{u"DefaultSearchTo", chosen}, {u"SearchTo", u"5"}};
    Setting().Load();
    EXPECT_EQ(Setting().menumSearchTo, starts);
  }
  Stored() = {{u"DefaultSearchTo", u"0"}, {u"SearchTo", u"damaged"}};
  Setting().Load();
  EXPECT_EQ(Setting().menumSearchTo, 0) << "what is not read does no harm";
}

TEST_F(GlobalSettingTest, TheStylesheet) {
  std::vector<std::u16string> heard;
  const Subscription changes = Setting().PropertyChange.Subscribe([&](const auto& name) { heard.push_back(name); });
  Stored() = {{u"XSL", u""}};
  Setting().Load();
  EXPECT_EQ(Setting().XSL(), GlobalSetting::DefaultXSL());
  EXPECT_EQ(heard, std::vector<std::u16string>{u"XSL"});
  Setting().SetXSL(GlobalSetting::DefaultXSL());
  EXPECT_EQ(heard.size(), 1u);
  Stored() = {{u"XSL", u"<other/>"}};
  Setting().Load();
  EXPECT_EQ(heard.size(), 1u) << "a load is no change";
  Setting().SetXSL(u"<Other/>");
  EXPECT_EQ(heard.size(), 2u) << "case counts";
}

TEST_F(GlobalSettingTest, ADamagedValueEndsTheLoadAndStays) {
  for (const Row& row : Rows("settings/GlobalSetting.rows", "Damaged")) {
    Stored() = {{u"SearchItem", u"kept"}, {row.Text(0), row.Text(1)}};
    const MemorySettings::Sections before = platform.settings.Now;
    Setting().mcolSearchHistory.RemoveAll();
    const auto error = Raised([&] { Setting().Load(); });
    EXPECT_EQ(error, row.Number(2)) << row.Where();
    EXPECT_TRUE(error.Says(": " + row.Bytes(0) + " = \"" + row.Bytes(1) + "\"")) << error;
    EXPECT_EQ(platform.settings.Now, before);
    EXPECT_EQ(Setting().mcolSearchHistory.Join(), u"kept") << "what stands before is taken";
  }
}

TEST_F(GlobalSettingTest, EventsGoOutAtTheEnd) {
  std::vector<std::u16string> heard;
  const Subscription load = Setting().LoadSetting.Subscribe([&](const auto& app, const auto& section) {
    heard.push_back(u"load " + app + u"/" + section + u" " + ToText(Setting().mintRelativeLineCount));
  });
  const Subscription save = Setting().SaveSetting.Subscribe([&](const auto& app, const auto& section) {
    heard.push_back(u"save " + app + u"/" + section + u" " + Stored()[u"RelativeLineCount"]);
    RaiseError(ErrorNumber::Internal);
  });
  Stored() = {{u"RelativeLineCount", u"5"}, {u"Unknown", u"goes"}};
  Setting().Load();
  Setting().Save();
  EXPECT_EQ(heard, (std::vector<std::u16string>{u"load Quorvane插件/Settings 5", u"save Quorvane插件/Settings 5"}));
  EXPECT_EQ(platform.settings.Commits, 1) << "a handler that fails does not keep the rest from being saved";
  EXPECT_FALSE(Stored().contains(u"Unknown"));
  EXPECT_TRUE(Stored().contains(u"RefreshResult"));

  Disconnect();
  Setting().Save();
  EXPECT_FALSE(Stored().contains(u"RefreshResult")) << "nobody writes them";
  Connect();
}

TEST_F(GlobalSettingTest, AValueThatCannotBeWrittenIsSkipped) {
  Setting().Load();
  Setting().Save();
  const std::size_t all = Stored().size();
  platform.settings.Refused = {u"XSL", u"LastUpdate", u"LocatePrevResult"};
  Setting().Save();
  EXPECT_EQ(Stored().size(), all - 3);
  EXPECT_EQ(platform.settings.Commits, 2);
}

}  // namespace quorvane::test
