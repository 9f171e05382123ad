#include <gtest/gtest.h>

#include "addin/connect/Updater.h"
#include "addin/core/Globals.h"
#include "addin/dialogs/RegisterDialogs.h"
#include "addin/settings/GlobalSetting.h"
#include "platform/forms/Forms.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/TestPlatform.h"

namespace quorvane::test {

namespace {

constexpr int kNo = 7;
constexpr int kYes = 6;
constexpr const char* kAsked = "Open GET http://host.example/p/vbquorvane/wiki/Update async";

}  // namespace

class UpdaterTest : public ::testing::Test {
 protected:
  UpdaterTest() {
    Globals::gobjUpdater = std::make_shared<Updater>();
    updater().Setup();
    RegisterDialogs();
    done_ = updater().TaskDone.Subscribe([this] { events += "done "; });
    failed_ = updater().OnError.Subscribe([this](std::int32_t number, const std::u16string& description) {
      events += "error " + std::to_string(number) + " " + ToUtf8(description);
    });
  }
  ~UpdaterTest() override {
    done_.Reset();
    failed_.Reset();
    forms::TheForms().Forget();
  }

  Updater& updater() { return *Globals::gobjUpdater; }
  void Load(const MemorySettings::Section& stored) {
    platform.settings.Now[{u"Quorvane插件", u"Settings"}] = stored;
    Globals::gobjSetting->Load();
  }
  std::u16string LastUpdate() {
    Globals::gobjSetting->Save();
    return platform.settings.Lasting[{u"Quorvane插件", u"Settings"}][u"LastUpdate"];
  }

  /// A check at every connection; its message boxes, by their first line.
  std::vector<std::string> Passive(std::int32_t sensibility, const std::u16string& page, int answer = kNo) {
    updater().menumUpdateInterval = 0;
    updater().menumSensibility = sensibility;
    updater().ScheduleUpdate();
    return Boxes([&] { EXPECT_TRUE(platform.web.Answer(page)); }, answer);
  }
  std::vector<std::string> Active(const std::u16string& page, int answer = kNo) {
    platform.loop.Steps.push_back([this, page] { EXPECT_TRUE(platform.web.Answer(page)); });
    return Boxes([&] { updater().CheckUpdate(); }, answer);
  }
  template <class Action>
  std::vector<std::string> Boxes(Action action, int answer) {
    platform.prompts.Shown.clear();
    platform.prompts.Answers = {answer};
    action();
    platform.prompts.Answers.clear();
    std::vector<std::string> boxes;
    for (const auto& box : platform.prompts.Shown) boxes.push_back(ToUtf8(box.text.substr(0, box.text.find(u'\r'))));
    return boxes;
  }

  TestPlatform platform;
  std::string events;

 private:
  Subscription done_;
  Subscription failed_;
};

TEST_F(UpdaterTest, WhatIsReportedAtWhichSensitivity) {
  const std::vector<std::string> silent;
  const std::vector<std::string> offer{"[VB Quorvane]"};
  const std::vector<std::string> latest{"Current version is latest (4.13.0.129)."};
  for (const Row& row : Rows("connect/Updater.rows", "Verdicts")) {
    SCOPED_TRACE(row.Where());
    const std::u16string page = u"<html>1.2.3 4<b>" + row.Text(0) + u"</b> 99.9.9.9</html>";
    for (std::int32_t sensibility = 0; sensibility < 3; ++sensibility) {
      EXPECT_EQ(Passive(sensibility, page), sensibility >= row.Number(1) ? offer : silent) << sensibility;
    }
    EXPECT_EQ(Active(page), row.Number(1) < 3 ? offer : latest);
  }
  EXPECT_TRUE(platform.shell.Opened.empty());
}

TEST_F(UpdaterTest, OffersTheDownload) {
  EXPECT_EQ(Active(u"4.13.0.130", kYes).size(), 1u);
  const ScriptedPrompts::Box expected{
      u"[VB Quorvane]\r\n\r\nFound new version:4.13.0.130\r\nCurrent version is:4.13.0.129\r\n\r\n"
      u"Goto download? (jump to website)",
      4, u"Check update"};
  EXPECT_EQ(platform.prompts.Shown, std::vector{expected});
  EXPECT_EQ(platform.shell.Opened, std::vector<std::u16string>{u"http://host.example/p/vbquorvane/downloads"});
  EXPECT_EQ(platform.web.Calls, (std::vector<std::string>{kAsked, "Send"}));
  EXPECT_EQ(events, "done ");
  updater().GotoProjectSite();
  EXPECT_EQ(platform.shell.Opened.back(), u"http://host.example/p/vbquorvane/");
}

TEST_F(UpdaterTest, ABuildWithoutAnAddressSaysSoAndAsksNobody) {
  const std::vector<std::string> words = {"This build has no address of the project's web site."};
  Load({{u"UpdateInterval", u"0"}, {u"LastUpdate", u"2003-02-01"}});
  for (const char16_t* host : {u"example.invalid", u""}) {
    platform.app.ProjectHost = host;
    const std::u16string before = LastUpdate();
    updater().ScheduleUpdate();
    EXPECT_EQ(LastUpdate(), before);
    EXPECT_EQ(Boxes([&] { updater().CheckUpdate(); }, 1), words);
    EXPECT_EQ(Boxes([&] { updater().GotoProjectSite(); }, 1), words);
    EXPECT_EQ(Boxes([&] { Updater::OpenPage(u"/help"); }, 1), words);
  }
  EXPECT_TRUE(platform.web.Calls.empty());
  EXPECT_TRUE(platform.shell.Opened.empty());
}

TEST_F(UpdaterTest, PagesWithoutAVersion) {
  const std::u16string none = u"<html>404 Not Found 1.2.3</html>";
  for (const std::u16string& page : {none, std::u16string(), std::u16string(1 << 20, u'x')}) {
    events.clear();
    EXPECT_TRUE(Active(page).empty());
    EXPECT_EQ(events, "done error -2147220480 Failed to parse version!");
    EXPECT_TRUE(Passive(2, page).empty()) << "nobody listens";
  }
  // An error page is a page, and so is a huge one.
  EXPECT_EQ(Active(u"<h1>503</h1> nginx 5.0.0.0").size(), 1u);
  EXPECT_EQ(Active(std::u16string(1000000, u'x') + u"5.0.0.0").size(), 1u);
}

TEST_F(UpdaterTest, AVersionPartOutOfRangeIsAnError) {
  EXPECT_EQ(Active(u"32768.0.0.0", 1), std::vector<std::string>{"Error:6"});
  EXPECT_EQ(Passive(2, u"4.13.0.99999", 1), std::vector<std::string>{"Error:6"});
  EXPECT_EQ(Active(u"5.0.0.32768", 1), std::vector<std::string>{"Error:6"}) << "also after a part that decides";
  EXPECT_EQ(LastUpdate(), u"15.05.2024 10:30:00");
}

TEST_F(UpdaterTest, FailedRequests) {
  for (const std::int32_t number : {kHttpTimeout, kHttpCannotConnect, kHttpBodyTooLarge}) {
    events.clear();
    platform.prompts.Answers = {1};
    platform.loop.Steps.push_back([&] { platform.web.Fail(number, u"in words"); });
    updater().CheckUpdate();
    EXPECT_EQ(events, "error " + std::to_string(number) + " in words");
    EXPECT_EQ(forms::TheForms().Count(), 0) << "the progress window is gone";
  }
  platform.clock.Moment = DateTime::Of(2024, 5, 20, 8, 0, 0);
  updater().menumUpdateInterval = 0;
  updater().ScheduleUpdate();
  platform.web.Fail(kHttpTimeout, u"silent");
  EXPECT_EQ(LastUpdate(), u"20.05.2024 08:00:00") << "the next check waits for its time";
  EXPECT_EQ(platform.prompts.Shown.size(), 3u) << "told by the progress window alone";
}

TEST_F(UpdaterTest, AnErrorOfTheSendingReachesTheCaller) {
  platform.web.RefuseSend = 5;
  EXPECT_EQ(Raised([&] { updater().StartCheck(); }), 5);
  updater().menumUpdateInterval = 0;
  EXPECT_EQ(Raised([&] { updater().ScheduleUpdate(); }), 5);
  EXPECT_EQ(events, "");
}

TEST_F(UpdaterTest, TheConnectionMayEndWhileAnAnswerIsLookedAt) {
  updater().menumUpdateInterval = 0;
  updater().ScheduleUpdate();
  const Subscription ending = updater().TaskDone.Subscribe([] {
    Globals::gobjUpdater->TearDown();
    Globals::gobjUpdater.reset();
    Globals::gobjErrorManager.reset();
  });
  platform.prompts.Answers.push_back(kYes);
  EXPECT_TRUE(platform.web.Answer(u"5.0.0.0"));
  EXPECT_EQ(platform.shell.Opened.size(), 1u);
}

TEST_F(UpdaterTest, TheSchedule) {
  for (const Row& row : Rows("connect/Updater.rows", "Schedule")) {
    SCOPED_TRACE(row.Where());
    Load({{u"UpdateInterval", row.Text(0)}, {u"LastUpdate", row.Text(1)}});
    platform.clock.Moment = ParseDate(row.Text(2), platform.clock.Written);
    platform.web.Calls.clear();
    updater().ScheduleUpdate();
    const bool due = row.Bytes(3) == "due";
    EXPECT_EQ(platform.web.Calls.size(), due ? 2u : 0u);
    const bool noted = due && row.Number(0) >= 0 && row.Number(0) <= 3;
    EXPECT_EQ(LastUpdate(), noted ? DateText(platform.clock.Moment, platform.clock.Written) : row.Text(1));
    updater().CancelUpdate();
  }
  Load({});
  updater().ScheduleUpdate();
  EXPECT_EQ(platform.web.Calls.back(), "Abort") << "the first run waits for a week";
}

TEST_F(UpdaterTest, BehindTearDownSettingsGoByWithoutIt) {
  updater().TearDown();
  Load({{u"UpdateInterval", u"damaged"}});
  EXPECT_EQ(updater().menumUpdateInterval, 2);
}

}  // namespace quorvane::test
