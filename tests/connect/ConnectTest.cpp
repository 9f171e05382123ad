#include <gtest/gtest.h>

#include "addin/connect/Connect.h"
#include "addin/connect/HotkeyProxy.h"
#include "addin/connect/Updater.h"
#include "addin/core/Globals.h"
#include "addin/core/ISearchDialog.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/ObjStat.h"
#include "addin/results/PageManager.h"
#include "addin/settings/GlobalSetting.h"
#include "chordtrap/Manager.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "support/ConnectionFixture.h"
#include "support/Rows.h"
#include "support/TestPlatform.h"
#include "workbench/model/AddInLoader.h"
#include "workbench/model/HostCommandBars.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/GroupBuilder.h"

namespace quorvane {
namespace {

using test::Log;
using vbide::ConnectMode;
using vbide::DisconnectMode;

constexpr const char16_t* kAddIn = u"QuorvaneForVB6.Connect";

/// The add-in in the embedded host. Every step that can be seen is written down with the state that it finds: what is
/// filled, whether the hotkeys run, requests sent, the menu entry and the title.
class ConnectTest : public testing::Test {
 protected:
  ConnectTest() { Host(true); }
  ~ConnectTest() override {
    loader_.reset();
    PageManager::SetPageFactory(nullptr);
    forms::TheForms().Forget();
  }

  void Host(bool addInsBar) {
    workbench::Group group;
    if (!addInsBar) group.NoAddInsBar();
    host_ = group.Build(platform_.AnsiCodePage());
    loader_ = std::make_unique<workbench::AddInLoader>(host_);
    loader_->Register(kAddIn, [] { return std::make_shared<Connect>(); });
    host_->TheWindows()->RegisterDocumentFactory(u"QuorvaneForVB6.ResultDialog", [this] { return MakeDoc(); });
    forms::TheForms().Register(u"frmSearchDialog", [this] { return std::make_shared<SearchForm>(*this); });
    PageManager::SetPageFactory([this] { return std::make_shared<test::RecordedPage>(log_); });
    Globals::ReleaseObjects();  // the connection makes its own
    if (!addInsBar) return;
    bar_ = host_->TheCommandBars()->Bars().front();
    onBar_ = bar_->Changed.Subscribe([this] { Note("menu"); });
  }

  std::shared_ptr<vbide::Document> MakeDoc() {
    const auto doc = std::make_shared<test::RecordedDoc>(log_);
    AddState();
    doc->onSetup = [this] {
      AddState();
      onLoad_ = Globals::gobjSetting->LoadSetting.Subscribe([this](const auto&, const auto&) {
        Note("LoadSetting");
        if (onLoad) onLoad();
      });
      onSave_ = Globals::gobjSetting->SaveSetting.Subscribe([this](const auto&, const auto&) { Note("SaveSetting"); });
      if (onSetup) onSetup();
    };
    doc->onTearDown = [this] {
      AddState();
      if (onTearDown) onTearDown();
    };
    return doc;
  }

  class SearchForm final : public forms::Form, public ISearchDialog {
   public:
    explicit SearchForm(ConnectTest& test) : Form(u"frmSearchDialog"), test_(test) {}
    void ShowEx() override {
      test_.Note("ShowEx");
      if (test_.onShow) test_.onShow();
      Show();
    }

   private:
    void Form_Load() override { test_.Note("Form_Load"); }
    void Form_QueryUnload(bool&, forms::UnloadMode mode) override {
      test_.Note("Form_QueryUnload " + std::to_string(static_cast<int>(mode)));
    }
    void Form_Unload(bool&) override {
      test_.Note("Form_Unload");
      if (test_.onUnload) test_.onUnload();
    }
    ConnectTest& test_;
  };

  void Note(const std::string& what) {
    log_.push_back(what);
    AddState();
  }
  void AddState() { log_.back() += ": " + State(); }

  std::string State() {
    std::string filled;
    if (platform_.faults.Filter != nullptr) filled += 'f';
    if (Globals::gobjVBE) filled += 'V';
    if (Globals::gobjConnect) filled += 'C';
    if (Globals::gobjUtilities) filled += 'U';
    if (Globals::gobjErrorManager) filled += 'E';
    if (Globals::gobjSetting) filled += 'S';
    if (Globals::gobjPageManager) filled += Globals::gobjPageManager->mobjTabCtrl ? 'P' : 'p';
    if (Globals::gobjUpdater) filled += 'T';
    if (Globals::gobjHotkeyProxy) filled += 'H';
    if (Globals::gobjResultDoc) filled += 'D';
    if (Globals::gobjToolWindow) filled += 'W';
    filled += HotkeysRun() ? " keys" : " -";
    filled += " " + std::to_string(platform_.web.Calls.size());
    if (bar_ && !bar_->Buttons().empty()) filled += " [" + ToUtf8(bar_->Buttons().back()->Caption()) + "]";
    return filled + " " + ToUtf8(platform_.app.Title);
  }

  /// Asked by a key that no command takes, with a command's key held back before it works.
  bool HotkeysRun() {
    if (!Globals::gobjHotkeyProxy) return false;
    bool asked = false;
    const Subscription hold = Globals::gobjHotkeyProxy->Manager->BeforeProcess.Subscribe(
        [&](std::int32_t, const auto&, bool& cancel) { asked = cancel = true; });
    Globals::gobjHotkeyProxy->Manager->KeyDown('Q', 2);
    return asked;
  }

  void Load(ConnectMode mode = ConnectMode::AfterStartup) { loader_->Load(kAddIn, mode); }
  void Unload() { loader_->Unload(kAddIn, DisconnectMode::UserClosed); }
  /// "number description" of the boxes so far.
  Log Boxes() {
    Log boxes;
    for (const auto& box : platform_.prompts.Shown)
      boxes.push_back(ToUtf8(box.text.substr(0, box.text.find(u"\r\nSource"))));
    return boxes;
  }

  static Log LogOf(const std::string& table) {
    Log log;
    for (const test::Row& row : test::Rows("connect/Connect.rows", table)) log.push_back(row.Bytes(0));
    return log;
  }
  bool HotkeysTake(std::int32_t key) { return Globals::gobjHotkeyProxy->Manager->KeyDown(key, 2); }
  void Store(const std::u16string& key, const std::u16string& value) {
    platform_.settings.Now[{u"Quorvane插件", u"Settings"}][key] = value;
  }
  void TakeAwayTheDocument() {
    host_->TheWindows()->RegisterDocumentFactory(u"QuorvaneForVB6.ResultDialog",
                                                 [] { return std::make_shared<vbide::Document>(); });
  }
  /// A fresh host, platform state and program, for the next row of a table.
  void StartOver() {
    onSetup = onLoad = onTearDown = onShow = onUnload = nullptr;
    mode_ = ConnectMode::AfterStartup;
    loader_.reset();
    Globals::gobjVBE.reset();
    Globals::gobjConnect.reset();
    Globals::gobjToolWindow.reset();
    platform_.settings.Now.clear();
    platform_.settings.Kept.clear();
    Globals::Language().Language = 1;
    platform_.web.Calls.clear();
    platform_.web.RefuseSend = 0;
    platform_.prompts.Shown.clear();
    Host(true);
  }

  Log log_;  // outlives what writes to it
  test::TestPlatform platform_;
  ConnectMode mode_ = ConnectMode::AfterStartup;
  std::shared_ptr<workbench::Workbench> host_;
  std::shared_ptr<workbench::HostCommandBar> bar_;
  std::unique_ptr<workbench::AddInLoader> loader_;
  std::function<void()> onSetup, onLoad, onTearDown, onShow, onUnload;
  Subscription onBar_, onLoad_, onSave_;
};

TEST_F(ConnectTest, TheWholeLifeInItsOrder) {
  platform_.settings.Now[{u"Quorvane插件", u"Settings"}][u"UpdateInterval"] = u"0";
  Load();
  Note("connected");
  bar_->Buttons().front()->Click();
  Globals::gobjPageManager->AddNewPage();
  Unload();
  Note("disconnected");
  EXPECT_EQ(log_, LogOf("WholeLife"));
  for (const char* name : {"PageManager", "PageCollection", "Updater", "HotkeyProxy", "GlobalSetting", "Utilities"}) {
    EXPECT_EQ(ObjStat::Count(name), 0) << name;
  }
}

TEST_F(ConnectTest, LoadedFromOutsideItShowsTheDialogAndMakesNoEntry) {
  Load(ConnectMode::External);
  Note("connected");
  log_.erase(log_.begin(), log_.begin() + 3);  // as in the whole life
  EXPECT_EQ(log_, LogOf("FromOutside"));
}

TEST_F(ConnectTest, AHostWithoutTheBarGetsNoEntryAndNoError) {
  loader_.reset();
  bar_.reset();
  Host(false);
  Load();
  EXPECT_EQ(Globals::gobjConnect->mcbMenuCommandBar, nullptr);
  EXPECT_EQ(platform_.app.Title, u"Quorvane add-in") << "the start goes to its end";
  Unload();
  EXPECT_EQ(Globals::gobjSetting, nullptr);
}

TEST_F(ConnectTest, TheTextsFollowTheLanguage) {
  Load();
  bar_->Buttons().front()->SetEnabled(false);
  log_.clear();
  Globals::Language().Language = 0;
  Globals::Language().UpdateAllUI();
  EXPECT_EQ(bar_->Buttons().front()->Caption(), u"Quorvane插件(&D)");
  EXPECT_EQ(platform_.app.Title, u"Quorvane插件");
  EXPECT_EQ(log_, Log{"document Update"});
  EXPECT_FALSE(HotkeysTake('Q')) << "the entry is disabled";
  bar_->Buttons().front()->SetEnabled(true);
  EXPECT_TRUE(HotkeysTake('Q'));
  EXPECT_EQ(forms::TheForms().Count(), 1);
}

TEST_F(ConnectTest, AFailureOnTheWayInIsShownAndEndsTheStartWhereItHappened) {
  const auto fail = [] { RaiseError(ErrorNumber::Overflow); };
  const std::map<std::string, std::function<void()>> arrange = {
      {"no document", [this] { TakeAwayTheDocument(); }},
      {"a language without texts", [] { Globals::Language().Language = 7; }},
      {"a Setup", [&] { onSetup = fail; }},
      {"a stored number", [this] { Store(u"RelativeLineCount", u"many"); }},
      {"a stored key", [this] { Store(u"RefreshResult", u"Ctrl+"); }},
      {"the request",
       [this] {
         Store(u"UpdateInterval", u"0");
         platform_.web.RefuseSend = 5;
       }},
      {"the dialog",
       [&] {
         mode_ = ConnectMode::External;
         onShow = fail;
       }},
  };
  for (const test::Row& row : test::Rows("connect/Connect.rows", "WayIn")) {
    SCOPED_TRACE(row.Where());
    const bool loaded = row.Bytes(3) == "loaded";
    StartOver();
    Store(u"XSL", u"<mine/>");
    arrange.at(row.Bytes(0))();
    const auto before = platform_.settings.Now;
    platform_.prompts.Answers = {1};
    Load(mode_);
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_TRUE(Boxes().back().starts_with(row.Bytes(1))) << Boxes().back();
    EXPECT_EQ(Boxes().back().ends_with("\r\nA copy of your settings as they were is kept in (the copy)"), !loaded);
    EXPECT_EQ(State(), row.Bytes(2));
    Unload();
    EXPECT_EQ(platform_.settings.Kept, loaded ? test::MemorySettings::Sections() : before);
    EXPECT_EQ(State(), (Globals::gobjToolWindow ? "fVCW - " : "fVC - ") + std::to_string(platform_.web.Calls.size()) +
                           " Quorvane插件")
        << "the stop reaches its end all the same";
  }
}

TEST_F(ConnectTest, AFailureOnTheWayOutIsSkipped) {
  Load();
  bar_->Buttons().front()->Click();
  Globals::gobjPageManager->AddNewPage();
  platform_.settings.Refused = {u"AutoHideSearchDlg", u"ShowSearchDialog"};  // the latter ends the raise of SaveSetting
  onUnload = onTearDown = [] { RaiseError(ErrorNumber::Overflow); };
  log_.clear();
  Unload();
  EXPECT_EQ(log_, LogOf("WayOut"));
  EXPECT_EQ(platform_.settings.Commits, 1);
  onUnload = onTearDown = nullptr;
  forms::TheForms().Item(0)->Unload();

  Connect never;
  never.OnDisconnection(DisconnectMode::HostShutdown);
}

TEST_F(ConnectTest, AFailureBehindTheMenuIsShown) {
  Load();
  forms::TheForms().Forget();
  platform_.prompts.Answers = {1};
  bar_->Buttons().front()->Click();
  EXPECT_EQ(Boxes(), Log{"Error:429\r\nDescription:Cannot create the form frmSearchDialog"});
}

}  // namespace
}  // namespace quorvane
