#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "windows/ends/HostProcess.h"

namespace quorvane::test {

class EndsTest : public ::testing::Test {
 protected:
  /// A project with so many matches of "abc" that a search of it takes a while; the path of its file.
  static std::string BigProject() {
    char folder[MAX_PATH];
    ::GetTempPathA(MAX_PATH, folder);
    std::ofstream module(folder + std::string("Big.bas"), std::ios::binary);
    module << "Attribute VB_Name = \"Big\"\r\n";
    for (int i = 0; i < 30000; ++i) module << "abc = abc + abc\r\n";
    std::ofstream project(folder + std::string("Big.vbp"), std::ios::binary);
    project << "Type=Exe\r\nModule=Big; Big.bas\r\nName=\"BigP\"\r\n";
    return folder + std::string("Big.vbp");
  }
  static void Register(HostProcess& host) {
    ASSERT_EQ(host.Ask("register " + Beside("..\\..\\QuorvaneForVB6.dll")), "ok registered");
  }
  /// Begins a search of the module through the dialog, and comes back in the midst of it.
  static void BeginSearch(HostProcess& host) {
    ASSERT_EQ(host.Ask("show BigP.Big"), "ok shown");
    ASSERT_EQ(host.Ask("click-menu"), "ok clicked");
    const std::string focus = host.AskUntil("focus", [](const auto& answer) { return answer.ends_with(" Edit"); });
    std::istringstream words(focus);
    std::string edit;
    words >> edit >> edit;
    host.Ask("type abc");
    ASSERT_EQ(host.AskFor("title " + edit, "ok abc"), "ok abc");
    host.Ask("key enter");
    const auto busy = [](const std::string& answer) { return answer.find("CodeModule") != answer.npos; };
    ASSERT_TRUE(busy(host.AskUntil("counts", busy)));
  }
};

/// Whichever way the host tells of them, connection and disconnection leave nothing behind, twice in one process.
TEST_F(EndsTest, NothingIsLeftBehindADisconnection) {
  for (const char* way :
       {"", "--connect-by dispatch", "--connect-by older", "--fresh --no-type-info", "--wrap-document", "--no-menu",
        "--no-bars --one-class-id", "--no-add-ins --other-points --fresh-active"}) {
    SCOPED_TRACE(way);
    HostProcess host(way);
    Register(host);
    for (const char* mode : {"1", "0"}) {
      ASSERT_EQ(host.Ask("connect 1"), "ok connected");
      EXPECT_NE(host.Ask("counts").find("VBE 1"), std::string::npos);
      EXPECT_EQ(host.Ask("free"), "ok loaded");
      EXPECT_EQ(host.Ask(std::string("disconnect ") + mode), "ok disconnected");
      EXPECT_EQ(host.Ask("counts"), "ok ");
      EXPECT_EQ(host.Ask("free"), "ok unloaded");
    }
  }
}

TEST_F(EndsTest, TheHostLetsGoWithoutAWord) {
  HostProcess host;
  Register(host);
  ASSERT_EQ(host.Ask("connect 1"), "ok connected");
  EXPECT_EQ(host.Ask("drop"), "ok dropped");
  EXPECT_EQ(host.Ask("counts"), "ok ");
  EXPECT_EQ(host.Ask("free"), "ok unloaded");
}

TEST_F(EndsTest, OneThreadHasTheCode) {
  HostProcess host;
  Register(host);
  EXPECT_EQ(host.Ask("other-thread"), "ok made");
  EXPECT_EQ(host.Ask("free"), "ok unloaded");
  ASSERT_EQ(host.Ask("connect 1"), "ok connected");
  for (const char* progId : {"QuorvaneForVB6.Connect", "QuorvaneForVB6.ResultDialog"}) {
    EXPECT_EQ(host.Ask(std::string("other-thread ") + progId), "ok refused -2147417842");
  }
  EXPECT_EQ(host.Ask("disconnect 1"), "ok disconnected");
  EXPECT_EQ(host.Ask("free"), "ok unloaded");
}

TEST_F(EndsTest, ADisconnectionInTheMidstOfASearchWaitsForItsEnd) {
  HostProcess host("\"" + BigProject() + "\"");
  Register(host);
  ASSERT_EQ(host.Ask("connect 1"), "ok connected");
  ASSERT_NO_FATAL_FAILURE(BeginSearch(host));
  EXPECT_EQ(host.Ask("disconnect 1"), "ok disconnected");
  EXPECT_EQ(host.AskFor("free", "ok unloaded"), "ok unloaded");
  EXPECT_EQ(host.Ask("counts"), "ok ");
  // A connection before that end, which is taken back as well.
  ASSERT_EQ(host.Ask("connect 1"), "ok connected");
  ASSERT_NO_FATAL_FAILURE(BeginSearch(host));
  EXPECT_EQ(host.Ask("disconnect 1"), "ok disconnected");
  EXPECT_EQ(host.Ask("connect 1"), "ok connected");
  EXPECT_EQ(host.Ask("disconnect 1"), "ok disconnected");
  EXPECT_EQ(host.AskFor("free", "ok unloaded"), "ok unloaded");
  // And a connection that comes before that end.
  ASSERT_EQ(host.Ask("connect 1"), "ok connected");
  ASSERT_NO_FATAL_FAILURE(BeginSearch(host));
  EXPECT_EQ(host.Ask("disconnect 1"), "ok disconnected");
  EXPECT_EQ(host.Ask("connect 1"), "ok connected");
  const auto settled = [](const std::string& answer) { return answer.find("CodeModule") == answer.npos; };
  const std::string counts = host.AskUntil("counts", settled);
  EXPECT_NE(counts.find("VBE 1"), std::string::npos) << counts;
  EXPECT_EQ(host.Ask("click-menu"), "ok clicked");
  EXPECT_EQ(host.Ask("disconnect 0"), "ok disconnected") << "with the dialog open";
  EXPECT_EQ(host.AskFor("free", "ok unloaded"), "ok unloaded");
  EXPECT_EQ(host.Ask("counts"), "ok ");
}

}  // namespace quorvane::test
