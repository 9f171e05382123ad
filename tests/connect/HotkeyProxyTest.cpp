#include <gtest/gtest.h>

#include "addin/connect/HotkeyProxy.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/results/PageManager.h"
#include "addin/settings/GlobalSetting.h"
#include "chordtrap/ChordTrapControl.h"
#include "chordtrap/Manager.h"
#include "support/Raised.h"
#include "support/TestPlatform.h"

namespace quorvane::test {

class HotkeyProxyTest : public ::testing::Test {
 protected:
  HotkeyProxyTest() {
    Globals::gobjPageManager = std::make_shared<PageManager>();
    proxy.Setup();
  }
  TestPlatform platform;
  HotkeyProxy proxy;
};

TEST_F(HotkeyProxyTest, TheFiveCommands) {
  std::string list;
  for (const auto& item : proxy.Manager->Items()) {
    list += ToUtf8(item->FuncName + u"=" + item->Description + u"=" + chordtrap::KeyText(item->Key)) + "\n";
  }
  EXPECT_EQ(list,
            "ShowSearchDialog=Open Quorvane=Ctrl+Q\nLocatePrevResult=Locate last result=Ctrl+,\n"
            "LocateNextResult=Locate next result=Ctrl+.\nShowResultList=Show result list=\n"
            "RefreshResult=Repeat search=\n");
  EXPECT_EQ(Raised([&] { proxy.Invoke(u"Nonsense"); }), 438);
}

TEST_F(HotkeyProxyTest, WithoutAPageTheThreeRaise) {
  for (const char16_t* command : {u"LocatePrevResult", u"LocateNextResult", u"RefreshResult"}) {
    EXPECT_EQ(Raised([&] { proxy.Invoke(command); }), 91) << ToUtf8(command);
  }
}

TEST_F(HotkeyProxyTest, DescriptionsKeepTheLanguageOfTheStart) {
  Globals::Language().Language = 0;
  EXPECT_EQ(proxy.Manager->Items()[5]->Description, u"Repeat search");
  EXPECT_EQ(HotkeyProxy().Manager->Items()[5]->Description, u"重新搜索");
}

TEST_F(HotkeyProxyTest, KeysGoWhereTheSettingsGo) {
  Globals::gobjSetting->LoadSetting.Raise(u"App", u"One");
  chordtrap::ChordTrapControl editor;
  editor.Attach(*proxy.Manager);
  editor.Select(4);
  editor.Press({65, chordtrap::kCtrl | chordtrap::kShift});
  editor.Add();
  editor.Detach();
  Globals::gobjSetting->SaveSetting.Raise(u"App", u"Two");
  EXPECT_EQ(platform.settings.Now, (MemorySettings::Sections{{{u"App", u"Two"},
                                                              {{u"ShowSearchDialog", u"Ctrl+Q"},
                                                               {u"LocatePrevResult", u"Ctrl+,"},
                                                               {u"LocateNextResult", u"Ctrl+."},
                                                               {u"ShowResultList", u"Ctrl+Shift+A"},
                                                               {u"RefreshResult", u""}}}}));
  proxy.TearDown();
  Globals::gobjSetting->SaveSetting.Raise(u"App", u"Three");
  EXPECT_EQ(platform.settings.Now.size(), 1u);
}

}  // namespace quorvane::test
