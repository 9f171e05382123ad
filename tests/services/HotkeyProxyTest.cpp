#include <gtest/gtest.h>

#include "base/Text.h"
#include "chordtrap/ChordTrapControl.h"
#include "chordtrap/Manager.h"
#include "host/Connect.h"
#include "host/Globals.h"
#include "host/ISearchDialog.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"
#include "results/IResultPage.h"
#include "results/PageManager.h"
#include "search/TaskManager.h"
#include "services/GlobalSetting.h"
#include "services/HotkeyProxy.h"
#include "services/LanguageManager.h"
#include "support/ErrorOf.h"
#include "support/TestPlatform.h"

namespace quorvane::test {

namespace {

std::string called;

class SearchForm final : public Form, public ISearchDialog {
 public:
  SearchForm() : Form(u"frmSearchDialog") {}
  void ShowEx() override { called += "ShowEx "; }
};

class LocatingPage final : public IResultPage {
 public:
  std::shared_ptr<ResultCollection> Result() const override { return nullptr; }
  std::shared_ptr<ConditionSnap> CondSnap() const override { return nullptr; }
  void SetTabCaption(const std::u16string&) override {}
  void ClearList() override {}
  void AddListItem(const std::u16string&, std::int32_t) override {}
  std::u16string Key() const override { return u"p"; }
  void SetKey(const std::u16string&) override {}
  std::shared_ptr<TaskManager> Task() const override { return nullptr; }
  std::shared_ptr<FilterManager> Filter() const override { return nullptr; }
  WindowHandle ListHWnd() const override { return 0; }
  std::shared_ptr<Control> Panel() const override { return nullptr; }
  void Setup(const std::shared_ptr<Tab>&) override {}
  void TearDown() override {}
  void UpdateStatus() override {}
  void LocateNextResult() override { called += "next "; }
  void LocatePrevResult() override { called += "prev "; }
  void ProcessKeyDown(std::int16_t, std::int16_t) override {}
  void Reset() override {}
  bool CanRefresh() const override { return true; }
  void RefreshResult() override { called += "refresh "; }
};

class ToolWindow final : public vbide::Window {
 public:
  std::u16string Caption() const override { return {}; }
  void SetCaption(const std::u16string&) override {}
  bool Visible() const override { return false; }
  void SetVisible(bool visible) override { called += visible ? "visible " : "hidden "; }
  void SetWindowState(std::int32_t) override {}
  void Close() override {}
};

class MenuEntry final : public vbide::CommandBarControl {
 public:
  void SetCaption(const std::u16string&) override {}
  void SetVisible(bool) override {}
  bool Enabled() const override { return enabled; }
  void Delete() override {}

  bool enabled = true;
};

constexpr std::int32_t kComma = 188;
constexpr std::int32_t kFullStop = 190;

}  // namespace

class HotkeyProxyTest : public ::testing::Test {
 protected:
  HotkeyProxyTest() {
    called.clear();
    TheForms().Register(u"frmSearchDialog", [] { return std::make_shared<SearchForm>(); });
    Globals::gobjConnect = std::make_shared<Connect>();
    Globals::gobjConnect->mcbMenuCommandBar = entry;
    Globals::gobjToolWindow = std::make_shared<ToolWindow>();
    Globals::gobjPageManager = std::make_shared<PageManager>();
    proxy.Setup();
    proxy.Manager->Start();
  }
  ~HotkeyProxyTest() override { TheForms().Forget(); }

  void MakePage() {
    Globals::gobjPageManager->mobjTabCtrl = std::make_shared<TabControl>();
    Globals::gobjPageManager->mobjTabCtrl->Add(u"p", u"", u"p", 0);
    Globals::gobjPageManager->mcolPages->Add(std::make_shared<LocatingPage>(), u"p");
  }

  TestPlatform platform;
  std::shared_ptr<MenuEntry> entry = std::make_shared<MenuEntry>();
  HotkeyProxy proxy;
};

TEST_F(HotkeyProxyTest, TheFiveCommands) {
  MakePage();
  std::string list;
  std::int32_t code = 112;
  for (const auto& item : proxy.Manager->Items()) {
    list += ToUtf8(item->FuncName + u"=" + item->Description + u"=" + chordtrap::KeyText(item->Key)) + "\n";
    item->Key = {code++, chordtrap::kAlt};
  }
  EXPECT_EQ(list,
            "ShowSearchDialog=Open Quorvane=Ctrl+Q\nLocatePrevResult=Locate last result=Ctrl+,\n"
            "LocateNextResult=Locate next result=Ctrl+.\nShowResultList=Show result list=\n"
            "RefreshResult=Repeat search=\n");
  for (std::int32_t key = 112; key < code; ++key) EXPECT_TRUE(proxy.Manager->KeyDown(key, chordtrap::kAlt));
  EXPECT_EQ(called, "ShowEx prev next visible refresh ");
  EXPECT_EQ(ErrorOf([&] { proxy.Invoke(u"Nonsense"); }), 438);
}

TEST_F(HotkeyProxyTest, WithoutAPageTheThreeRaise) {
  EXPECT_EQ(ErrorOf([&] { proxy.Manager->KeyDown(kComma, chordtrap::kCtrl); }), 91);
  EXPECT_EQ(ErrorOf([&] { proxy.Manager->KeyDown(kFullStop, chordtrap::kCtrl); }), 91);
  EXPECT_EQ(ErrorOf([&] { proxy.RefreshResult(); }), 91);
}

TEST_F(HotkeyProxyTest, KeysWorkWhileTheMenuEntryIsEnabled) {
  MakePage();
  entry->enabled = false;
  EXPECT_FALSE(proxy.Manager->KeyDown(kComma, chordtrap::kCtrl));
  EXPECT_EQ(called, "");
  entry->enabled = true;
  EXPECT_TRUE(proxy.Manager->KeyDown(kComma, chordtrap::kCtrl));
  Globals::gobjConnect->mcbMenuCommandBar.reset();
  EXPECT_TRUE(proxy.Manager->KeyDown(kComma, chordtrap::kCtrl)) << "a connection without an entry";
  EXPECT_EQ(called, "prev prev ");
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
