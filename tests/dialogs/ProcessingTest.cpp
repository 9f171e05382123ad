#include <gtest/gtest.h>

#include "DialogWorld.h"
#include "addin/connect/Updater.h"
#include "addin/dialogs/frmProcessing.h"
#include "platform/forms/Forms.h"

namespace quorvane {
namespace {

constexpr int kOk = 1;

class ProcessingTest : public test::DialogFixture {
 protected:
  ProcessingTest() { platform.app.ProjectHost = u"host.example"; }
  frmProcessing& Processing() { return dynamic_cast<frmProcessing&>(*forms::TheForms().Item(0)); }
  void Close() { EXPECT_TRUE(Processing().CloseByUser()); }
  /// "flags title: text" of each box, line breaks as "/".
  std::string Boxes() {
    std::string all;
    for (const auto& box : std::exchange(platform.prompts.Shown, {})) {
      all += (all.empty() ? "" : "; ") + std::to_string(box.flags) + " " + ToUtf8(box.caption) + ": " +
             ToUtf8(ReplaceAll(box.text, kCrLf, u"/"));
    }
    return all;
  }
};

TEST_F(ProcessingTest, OutcomesOfACheck) {
  const std::string asked = "Open GET http://host.example/p/vbquorvane/wiki/Update async\nSend";
  const struct {
    const char* what;
    std::function<void()> answer;
    std::deque<int> buttons;
    std::string boxes;
    std::string calls;
  } rows[] = {
      {"latest",
       [&] { platform.web.Answer(u"<b>4.13.0.129</b>"); },
       {kOk},
       "0 Check update: Current version is latest (4.13.0.129).",
       asked},
      {"no answer",
       [&] { platform.web.Fail(-2147012889, u"The server name cannot be resolved"); },
       {kOk},
       "16 Updater: -2147012889:The server name cannot be resolved",
       asked},
      {"closed by the user", [&] { Close(); }, {}, "", asked + "\nAbort"},
      {"closed by the program",
       [&] {
         Processing().Unload();
         platform.web.Answer(u"4.13.0.129");
       },
       {kOk},
       "0 Check update: Current version is latest (4.13.0.129).",
       asked},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    platform.web.Calls.clear();
    platform.prompts.Answers = row.buttons;
    platform.loop.Steps = {[&] {
      EXPECT_TRUE(Processing().ShownModal());
      EXPECT_EQ(Processing().Owner(), nullptr);
      EXPECT_EQ(Processing().Caption(), u"Checking for update");
      EXPECT_EQ(Processing().Left(), 200);
      row.answer();
    }};
    const std::size_t timers = platform.loop.RunningTimers();
    Globals::gobjUpdater->CheckUpdate();
    EXPECT_EQ(Boxes(), row.boxes);
    EXPECT_EQ(test::Join(platform.web.Calls), row.calls);
    EXPECT_EQ(forms::TheForms().Count(), 0);
    EXPECT_EQ(platform.loop.RunningTimers(), timers);
    EXPECT_FALSE(platform.web.Answer(u"9.9.9.9"));
  }
}

TEST_F(ProcessingTest, ARequestThatCannotBeSentIsToldAndTheWindowWaits) {
  platform.web.RefuseSend = 1234;
  platform.prompts.Answers = {kOk};
  platform.loop.Steps = {[&] { Close(); }};
  Globals::gobjUpdater->CheckUpdate();
  EXPECT_EQ(Boxes(), "0 " + ToUtf8(platform.app.Title) + ": Error:1234/Description:refused/Source:VBQuorvane");
  EXPECT_EQ(platform.web.Calls.back(), "Abort");
}

TEST_F(ProcessingTest, ALateFailureReachesNobody) {
  platform.loop.Steps = {[&] { Processing().Unload(); }};
  Globals::gobjUpdater->CheckUpdate();
  EXPECT_TRUE(platform.web.Fail(1, u"late"));
  EXPECT_EQ(Boxes(), "");
}

TEST_F(ProcessingTest, TheBarRunsInACycleOfEleven) {
  std::string values;
  platform.loop.Steps = {[&] {
    for (int i = 0; i < 12; ++i) {
      values += std::to_string(Processing().pb检查更新->Value()) + " ";
      platform.loop.Advance(200);
    }
    Close();
  }};
  Globals::gobjUpdater->CheckUpdate();
  EXPECT_EQ(values, "0 10 20 30 40 50 60 70 80 90 100 0 ");
}

}  // namespace
}  // namespace quorvane
