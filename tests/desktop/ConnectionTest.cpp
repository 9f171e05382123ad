#include <QDockWidget>
#include <QMenu>
#include <csignal>

#include "DesktopFixture.h"
#include "addin/connect/Connect.h"
#include "addin/connect/HotkeyProxy.h"
#include "addin/connect/Updater.h"
#include "addin/settings/Registry.h"
#include "chordtrap/Manager.h"
#include "desktop/files/FileCommands.h"
#include "desktop/shell/AddInsMenu.h"
#include "desktop/shell/EndSignals.h"
#include "native/files/ProcessMark.h"
#include "native/settings/FileRegistryStore.h"
#include "native/settings/FileSettingsStore.h"
#include "native/system/LocaleClock.h"
#include "platform/App.h"
#include "platform/Platform.h"
#include "workbench/model/AddInLoader.h"
#include "workbench/model/HostWindows.h"

namespace quorvane::desktop {
namespace {

constexpr char16_t kApp[] = u"Quorvane插件";
constexpr char16_t kSection[] = u"Settings";

/// The add-in's life in the whole program, with what it keeps on disk.
class ConnectionTest : public DesktopTest {
 protected:
  std::string StorePath() const { return folder / "config/settings"; }
  std::u16string Stored(const std::u16string& key) {
    return native::FileSettingsStore(StorePath()).GetSetting(kApp, kSection, key, u"(none)");
  }
  void Store(const std::u16string& key, const std::u16string& value) {
    native::FileSettingsStore store(StorePath());
    store.SaveSetting(kApp, kSection, key, value);
    store.Commit();
  }

  /// All that lasts, as the add-in has it at the moment, one value a line.
  static std::vector<std::string> Preferences() {
    const GlobalSetting& setting = *Globals::gobjSetting;
    std::vector<std::string> all = {"language " + std::to_string(Globals::Language().Language),
                                    "title " + ToUtf8(ThePlatform().TheApp().Title),
                                    "search " + ToUtf8(setting.mcolSearchHistory.Join(u"\n")),
                                    "replace " + ToUtf8(setting.mcolReplaceHistory.Join(u"\n")),
                                    "lines " + std::to_string(setting.mintRelativeLineCount),
                                    "stylesheet " + ToUtf8(setting.XSL()),
                                    "hide " + std::to_string(setting.menumAutoHideSearchDlg),
                                    "default " + std::to_string(setting.menumDefaultSearchTo),
                                    "to " + std::to_string(setting.menumSearchTo),
                                    "maximize " + std::to_string(setting.mblnMaximizeWhenLocate),
                                    "interval " + std::to_string(Globals::gobjUpdater->menumUpdateInterval),
                                    "sensibility " + std::to_string(Globals::gobjUpdater->menumSensibility)};
    for (const auto& item : Globals::gobjHotkeyProxy->Manager->Items()) {
      all.push_back("key " + ToUtf8(chordtrap::KeyText(item->Key)));
    }
    return all;
  }

  static void ChangeEverything() {
    GlobalSetting& setting = *Globals::gobjSetting;
    setting.mcolSearchHistory.RemoveAll();
    for (const char16_t* entry : {u" \"quoted\" 'too' ", u"<a b=\"c\">&amp;</a>", u"搜索\t表", u"= [x] # \\n \\u0041",
                                  u"\xD83D\xDE00 and a lone \xDC80"}) {
      setting.mcolSearchHistory.Add(entry);
    }
    setting.mcolReplaceHistory.RemoveAll();
    for (int i = 1; i <= 60; ++i) setting.mcolReplaceHistory.Add(u"entry " + ToText(i));
    setting.mintRelativeLineCount = -3;
    setting.SetXSL(u"<?xml version=\"1.0\"?>\r\n<x>\n\ta\r</x> \r\n\r\n");
    setting.menumAutoHideSearchDlg = 0;
    setting.menumDefaultSearchTo = 2;
    setting.menumSearchTo = 0;
    setting.mblnMaximizeWhenLocate = false;
    Globals::gobjUpdater->menumUpdateInterval = 4;
    Globals::gobjUpdater->menumSensibility = 0;
    chordtrap::Items& keys = Globals::gobjHotkeyProxy->Manager->Items();
    keys[1]->Key = {};
    keys[2]->Key = {'Q', chordtrap::kCtrl | chordtrap::kShift};
    keys[3]->Key = {188, chordtrap::kAlt};
    keys[4]->Key = {116, 0};
    keys[5]->Key = {'R', chordtrap::kCtrl | chordtrap::kAlt};
  }
};

TEST_F(ConnectionTest, EverythingIsFoundByTheNextRunAndByTheOneAfterIt) {
  const std::u16string lastCheck = DateText(DateTime::Of(2003, 2, 1, 4, 5, 6), native::LocaleClock().Format());
  Store(u"LastUpdate", lastCheck);
  Store(u"UpdateInterval", u"4");
  Start();
  const std::vector<std::string> first = Preferences();
  ChangeEverything();
  Globals::Language().Language = 1;
  Globals::Language().UpdateAllUI();
  std::vector<std::string> changed = Preferences();
  for (std::size_t i = 0; i < changed.size(); ++i) {
    EXPECT_TRUE(changed[i] != first[i] || first[i].starts_with("interval")) << first[i];
  }
  Stop();
  EXPECT_EQ(folder.Read("config/config.ini"), "[Language Setting]\r\nLanguage=1\r\n");

  auto& replaced = changed[3];
  replaced.erase(replaced.find("\nentry 51"));
  Start();
  EXPECT_EQ(Preferences(), changed);
  // This run had the English title from its start to its end; what it leaves counts no less.
  Globals::gobjSetting->mintRelativeLineCount = 7;
  Globals::gobjSetting->menumAutoHideSearchDlg = 1;
  Globals::Language().Language = 0;
  Globals::Language().UpdateAllUI();
  changed = Preferences();
  Stop();

  Start();
  EXPECT_EQ(Preferences(), changed);
  Stop();
  EXPECT_EQ(Stored(u"LastUpdate"), lastCheck);
}

TEST_F(ConnectionTest, TheLanguageLiesBesideTheProgramWhereThatCanBeWritten) {
  std::filesystem::remove(folder / "config/config.ini");
  std::filesystem::create_directories(folder / "program");
  for (const std::int32_t language : {1, 0}) {
    Start();
    Globals::Language().Language = language;
    Stop();
    Start();
    EXPECT_EQ(Globals::Language().Language, language);
    Stop();
    EXPECT_NE(folder.Read("program/config.ini").find("Language=" + std::to_string(language)), std::string::npos);
  }
  EXPECT_FALSE(std::filesystem::exists(folder / "config/config.ini"));
}

TEST_F(ConnectionTest, ADamagedValueCostsNothingThatIsNotKept) {
  Store(u"UpdateInterval", u"4");
  Start();
  ChangeEverything();
  Stop();
  Store(u"RelativeLineCount", u"many");
  const std::string mine = folder.Read("config/settings");
  QString told;
  AnswerNext(QMessageBox::Ok, &told);
  Start();
  EXPECT_TRUE(told.contains(QString::fromStdString(StorePath() + ".damaged"))) << told.toStdString();
  Stop();
  EXPECT_EQ(folder.Read("config/settings.damaged"), mine);
  Start();
  EXPECT_EQ(Globals::gobjSetting->XSL(), GlobalSetting::DefaultXSL()) << "what the disconnection saved";
  Stop();
  Store(u"UpdateInterval", u"never");
  const std::string later = folder.Read("config/settings");
  AnswerNext(QMessageBox::Ok);
  Start();
  Stop();
  EXPECT_EQ(folder.Read("config/settings.damaged"), mine) << "not written over";
  EXPECT_EQ(folder.Read("config/settings.damaged-2"), later);
  std::filesystem::copy_file(folder / "config/settings.damaged", StorePath(),
                             std::filesystem::copy_options::overwrite_existing);
  Store(u"RelativeLineCount", u"5");
  Start();
  EXPECT_EQ(Globals::gobjUpdater->menumUpdateInterval, 4) << "the copy is of use";
}

TEST_F(ConnectionTest, AStoreThatIsNoneIsToldAndPutAside) {
  folder.Write("config/settings", "what is this\n");
  QString told;
  AnswerNext(QMessageBox::Ok, &told);
  Start();
  EXPECT_TRUE(told.contains(QString::fromStdString(StorePath() + ".damaged"))) << told.toStdString();
  Stop();
  EXPECT_EQ(folder.Read("config/settings.damaged"), "what is this\n");
  Start();
}

TEST_F(ConnectionTest, ALanguageThatIsNoneKeepsTheAddInOutUntilTheUserStartsIt) {
  Start();
  ChangeEverything();
  Stop();
  for (const char* language : {"English", "7", "-1", "", "99999999999"}) {
    SCOPED_TRACE(language);
    const std::string bytes = std::string("[Language Setting]\r\nLanguage=") + language + "\r\n";
    folder.Write("config/config.ini", bytes);
    QString told;
    AnswerNext(QMessageBox::Ok, &told);
    Start();
    EXPECT_TRUE(told.contains(QStringLiteral("Language = \"%1\"").arg(QLatin1String(language)))) << told.toStdString();
    EXPECT_TRUE(told.contains(QLatin1String("config.ini"))) << told.toStdString();
    EXPECT_EQ(Globals::gobjSetting, nullptr);
    EXPECT_EQ(folder.Read("config/config.ini"), bytes);
    ASSERT_EQ(Window().AddIns().actions().size(), 1);
    Stop();
    EXPECT_EQ(folder.Read("config/config.ini"), bytes) << "a run without the add-in changes nothing";

    AnswerNext(QMessageBox::Ok);
    Start();
    Window().AddIns().actions().constFirst()->trigger();
    EXPECT_TRUE(WaitUntil([] { return Globals::gobjSetting != nullptr; }, std::chrono::seconds(10)));
    EXPECT_EQ(Globals::Language().Language, 1) << "the tests' locale";
    EXPECT_EQ(Window().AddIns().actions().size(), 1) << "the add-in's own entry";
    EXPECT_EQ(Globals::gobjSetting->XSL(), u"<?xml version=\"1.0\"?>\r\n<x>\n\ta\r</x> \r\n\r\n") << "nothing is lost";
    Stop();
    EXPECT_EQ(folder.Read("config/config.ini"), "[Language Setting]\r\nLanguage=1\r\n");
  }
  EXPECT_EQ(folder.Read("config/config.ini.damaged"), "[Language Setting]\r\nLanguage=English\r\n");
  EXPECT_EQ(folder.Read("config/config.ini.damaged-2"), "[Language Setting]\r\nLanguage=7\r\n");
}

TEST_F(ConnectionTest, TheToolWindowGoesWithTheAddInAndComesBackOnce) {
  Start();
  const auto host = std::shared_ptr<workbench::Workbench>(std::shared_ptr<void>(), &desktop->Host());
  const auto entries = [&] { return Window().Menu().Find(Text::MenuView)->menu()->actions().size(); };
  const auto before = entries();
  Globals::gobjToolWindow->SetVisible(true);
  desktop->Stop();
  EXPECT_TRUE(Window().ToolDocks().empty());
  EXPECT_EQ(Window().findChildren<QDockWidget*>().size(), 2) << "those of the project tree and the changes alone";
  EXPECT_EQ(entries(), before - 1);
  // The slot is still filled, and what it does is seen by nobody.
  EXPECT_FALSE(Globals::gobjToolWindow->Visible());
  Globals::gobjToolWindow->SetVisible(true);
  Globals::gobjToolWindow->SetCaption(u"late");

  workbench::AddInLoader again(host);
  again.Register(u"QuorvaneForVB6.Connect", [] { return std::make_shared<Connect>(); });
  for (int turn = 0; turn < 2; ++turn) {
    again.Load(u"QuorvaneForVB6.Connect", vbide::ConnectMode::AfterStartup);
    ASSERT_EQ(Window().ToolDocks().size(), 1U);
    EXPECT_EQ(desktop->Host().TheWindows()->ToolWindows().size(), 1U);
    EXPECT_EQ(entries(), before);
    EXPECT_TRUE(Window().ToolDocks().front()->isHidden());
    Globals::gobjToolWindow->SetVisible(true);
    EXPECT_TRUE(Window().ToolDocks().front()->isVisible());
    again.Unload(u"QuorvaneForVB6.Connect", vbide::DisconnectMode::UserClosed);
  }
}

TEST_F(ConnectionTest, ASignalEndsInOrderAndKeepsWhatIsNotSaved) {
  setup.dataFolder = folder / "data";
  const std::string journals = folder / "data/edits/";
  const std::string file = folder / "samples/Kanji/modZaiko.bas";
  const std::string bytes = folder.Read("samples/Kanji/modZaiko.bas");
  for (const int signal : {SIGTERM, SIGHUP}) {
    for (const bool boxWaits : {false, true}) {
      SCOPED_TRACE(std::to_string(signal) + (boxWaits ? " while a box waits" : ""));
      Start("932");
      Open("samples/Kanji/Kanji.vbp");
      workbench::Module& module = ModuleNamed(u"modZaiko");
      const std::u16string text = module.Text();
      module.DeleteLines(2, 1);
      module.InsertLines(1, u"' typed\\");
      const std::u16string edited = module.Text();
      Globals::gobjSetting->mintRelativeLineCount = static_cast<std::int16_t>(signal + 100);
      bool ended = false;
      {
        EndSignals signals;
        const Subscription came = signals.Came.Subscribe([this](int) { desktop->EndSoon(); });
        const Subscription done = desktop->Ended.Subscribe([&] { ended = true; });
        QTimer::singleShot(0, [&] { raise(signal); });
        if (boxWaits) {
          LeaveBoxes();
          Window().Files().CloseAll();
          WatchAgain();
        }
        EXPECT_TRUE(WaitUntil([&] { return ended; }, std::chrono::seconds(10)));
      }
      EXPECT_EQ(Globals::gobjSetting, nullptr) << "disconnected";
      Stop();
      EXPECT_EQ(Stored(u"RelativeLineCount"), ToText(signal + 100));
      EXPECT_EQ(folder.Read("samples/Kanji/modZaiko.bas"), bytes) << "the file is not touched";

      // The journal of this process, as if it had ended: another start of a process with its number.
      const std::string own = journals + native::ProcessMark() + ".journal";
      std::filesystem::rename(own, journals + native::ProcessMark() + "1.journal");
      Start("932");
      QString told;
      AnswerNext(QMessageBox::Yes, &told);
      desktop->OpenFirst({});
      EXPECT_TRUE(told.contains(QString::fromStdString(file))) << told.toStdString();
      EXPECT_EQ(ModuleNamed(u"modZaiko").Text(), edited);
      EXPECT_TRUE(std::filesystem::exists(own)) << "not saved yet";
      EXPECT_FALSE(std::filesystem::exists(journals + native::ProcessMark() + "1.journal"));
      EXPECT_TRUE(ModuleNamed(u"modZaiko").Undo());
      EXPECT_EQ(ModuleNamed(u"modZaiko").Text(), text);
      EXPECT_FALSE(ModuleNamed(u"modZaiko").Modified());
      Window().close();
      EXPECT_FALSE(std::filesystem::exists(own)) << "the user has closed";
      Stop();
    }
  }
}

TEST_F(ConnectionTest, WhatAJournalCannotBringBackStaysThere) {
  setup.dataFolder = folder / "data";
  Start("932");
  Open("samples/Kanji/Kanji.vbp");
  for (const char16_t* name : {u"modZaiko", u"CShouhin"}) ModuleNamed(name).InsertLines(1, u"' typed");
  EXPECT_TRUE(Window().MayEndSession(false));
  const std::string left = folder / ("data/edits/" + native::ProcessMark() + "1.journal");
  std::filesystem::rename(folder / ("data/edits/" + native::ProcessMark() + ".journal"), left);
  AnswerNext(QMessageBox::Cancel);
  EXPECT_FALSE(Window().MayEndSession(true));
  AnswerNext(QMessageBox::Discard);
  EXPECT_TRUE(Window().MayEndSession(true));
  Window().close();  // asks no more
  Stop();

  std::filesystem::remove(folder / "samples/Kanji/CShouhin.cls");
  folder.Write("samples/Kanji/modZaiko.bas", "Attribute VB_Name = \"modZaiko\"\r\n' another's\r\n");
  QString newer, lost;
  AnswerNext(QMessageBox::Yes);
  AnswerNext(QMessageBox::Ok, &newer);
  AnswerNext(QMessageBox::Ok, &lost);
  Start("932");
  desktop->OpenFirst({});
  EXPECT_TRUE(newer.contains(QLatin1String("modZaiko")) && !newer.contains(QLatin1String("CShouhin")));
  EXPECT_TRUE(lost.contains(QLatin1String("CShouhin")) && lost.contains(QString::fromStdString(left)));
  EXPECT_TRUE(std::filesystem::exists(left));
  AnswerNext(QMessageBox::Discard);
  Window().close();
}

TEST_F(ConnectionTest, RegistryValuesLast) {
  constexpr RegistryKey kUser = native::FileRegistryStore::kCurrentUser;
  const Registry::Value written = u"à bientôt";
  Start();
  EXPECT_TRUE(Registry().SetValue(kUser, u"Software\\Q", u"é", Registry::kRegSz, written));
  Stop();
  Start();
  Registry::Value value;
  EXPECT_TRUE(Registry().GetValue(kUser, u"software\\q", u"é", value));
  EXPECT_EQ(value, written);
}

}  // namespace
}  // namespace quorvane::desktop
