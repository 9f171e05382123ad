#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <thread>

#include "cli/Program.h"

namespace quorvane::test {

namespace {

const std::string kMain1 = "App\\Main\\Proc\\(Declarations)[2,8]Public total As Long\n";
const std::string kMain2 = "App\\Main\\Proc\\Sum[4,2]\ttotal = total + 1 ' Total\n";
const std::string kMain3 = "App\\Main\\Proc\\Sum[4,10]\ttotal = total + 1 ' Total\n";
const std::string kMain4 = "App\\Main\\Proc\\Sum[4,22]\ttotal = total + 1 ' Total\n";
const std::string kMain = kMain1 + kMain2 + kMain3 + kMain4;
const std::string kAppCommon = "App\\Common\\Proc\\(Declarations)[2,8]Dim subtotal\n";
const std::string kLibCommon = "Lib\\Common\\Proc\\(Declarations)[2,8]Dim subtotal\n";

}  // namespace

class FindTest : public ::testing::Test, protected Program {
 protected:
  FindTest() { WriteShop(folder); }

  /// Runs a find over the group, the warning of the missing file apart.
  Outcome Find(std::vector<std::string> args) {
    args.insert(args.begin(), "find");
    args.push_back("Shop.vbg");
    Outcome outcome = Call(args);
    if (outcome.err.find("Gone.cls") != std::string::npos) outcome.err.erase(0, outcome.err.find('\n') + 1);
    return outcome;
  }
};

TEST_F(FindTest, OptionsOfTheCondition) {
  struct Row {
    std::vector<std::string> args;
    std::string out;
  };
  const std::vector<Row> rows{
      {{"total"}, kMain + kAppCommon + kLibCommon},
      {{"-m", "common", "-a", "group", "TOTAL"}, kMain + kAppCommon + kLibCommon},
      {{"--mode=pattern", "t?t[!b]l +"}, kMain3},
      {{"--mode", "regexp", "^dim s\\w+$"},
       "App\\Common\\Proc\\(Declarations)[2,1]Dim subtotal\nLib\\Common\\Proc\\(Declarations)[2,1]Dim subtotal\n"},
      {{"-m", "regexp", "-s", "^dim a"},
       "App\\Common\\Proc\\(Declarations)[1,1]Dim a\nLib\\Common\\Proc\\(Declarations)[1,1]Dim a\n"},
      {{"-m", "regexp", "-s", "^dim s"}, ""},
      {{"-m", "regexp", "a\\r\\nDim"},
       "App\\Common\\Proc\\(Declarations)[1,5]Dim a\nLib\\Common\\Proc\\(Declarations)[1,5]Dim a\n"},
      {{"-m", "regexp", "[<]"}, "Lib\\Order\\Let\\P[3,8]  x = \"<&>\"\n"},
      {{"-c", "Total"}, kMain4},
      {{"--match-case", "-w", "total"}, kMain1 + kMain2 + kMain3},
      {{"--whole-word", "total"}, kMain},
      {{"--comments", "exclude", "total"}, kMain1 + kMain2 + kMain3 + kAppCommon + kLibCommon},
      {{"--comments", "only", "total"}, kMain4},
      {{"--comments", "include", "-w", "total"}, kMain},
      {{"-a", "project", "total"}, kMain + kAppCommon},
      {{"-a", "project", "--project", "lib", "total"}, kLibCommon},
      {{"-a", "module", "--module", "MAIN", "total"}, kMain},
      {{"-a", "module", "--project", "Lib", "--module", "Common", "total"}, kLibCommon},
      {{"-a", "procedure", "--module", "Main", "--at", "4", "total"}, kMain2 + kMain3 + kMain4},
      {{"-a", "procedure", "--module", "Main", "--at", "2,5", "total"}, kMain1},
      {{"-a", "selection", "--module", "Main", "--select", "4,3,4,22", "total"}, kMain3},
      {{"-a", "selection", "--module", "Main", "--select", "2,8,4,7", "total"}, kMain1 + kMain2},
      {{"-a", "procedure", "--module", "Main", "--at", "3", "--file-lines", "total"}, kMain1},
      {{"-a", "selection", "--module", "Main", "--select", "7,3,7,22", "--file-lines", "total"}, kMain3},
      {{"to\ntal\r"}, kMain + kAppCommon + kLibCommon},
      {{"list"}, ""},
      {{"--", "-1"}, ""},
      {{"{}"}, ""},
      {{"nothing of that"}, ""},
  };
  for (const Row& row : rows) {
    const Outcome outcome = Find(row.args);
    EXPECT_EQ(outcome.out, row.out) << row.args.back();
    EXPECT_EQ(outcome.err, "") << row.args.back();
    EXPECT_EQ(outcome.status, row.out.empty() ? 1 : 0) << row.args.back();
  }
}

TEST_F(FindTest, Formats) {
  EXPECT_EQ(Find({"--format", "count", "total"}).out, "6\n");
  const Outcome none = Find({"--format", "count", "zzz"});
  EXPECT_EQ(none.out, "0\n");
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(Find({"--format", "vimgrep", "total"}).out,
            "App/Main.bas:3:8:Public total As Long\nApp/Main.bas:7:2:\ttotal = total + 1 ' Total\n"
            "App/Main.bas:7:10:\ttotal = total + 1 ' Total\nApp/Main.bas:7:22:\ttotal = total + 1 ' Total\n"
            "Lib/Common.bas:3:8:Dim subtotal\nLib/Common.bas:3:8:Dim subtotal\n");
  EXPECT_EQ(Find({"--format", "json", "-m", "regexp", "\"<&>\"\\r\\nEnd"}).out,
            "{\"ID\":1,\"Y1\":3,\"Y2\":4,\"X1\":7,\"X2\":4,\"ScreenX1\":7,\"ScreenX2\":4,\"StartPos\":7,\"EndPos\":17,"
            "\"MatchStr\":\"\\\"<&>\\\"\\r\\nEnd\",\"ComponentName\":\"Order\",\"ProjectName\":\"Lib\","
            "\"RelativeStartPos\":58,\"RelativeEndPos\":68,\"ProcName\":\"P\",\"ProcType\":\"Let\","
            "\"Line\":\"  x = \\\"<&>\\\"\",\"Path\":\"Lib/Order.cls\",\"FileLine\":8}\n");
  EXPECT_EQ(Find({"--format", "xml", "-m", "regexp", "-c", "<&>"}).out,
            "<SearchResult>\n  <MatchItem ID=\"1\" Y1=\"3\" Y2=\"3\" X1=\"8\" X2=\"11\" ScreenX1=\"8\" ScreenX2=\"11\" "
            "StartPos=\"8\" EndPos=\"11\" MatchStr=\"&lt;&amp;&gt;\" ComponentName=\"Order\" ProjectName=\"Lib\" "
            "RelativeStartPos=\"59\" RelativeEndPos=\"62\" ProcName=\"P\" ProcType=\"Let\" "
            "Line=\"  x = &quot;&lt;&amp;&gt;&quot;\"/>\n</SearchResult>\n");
  EXPECT_EQ(Find({"--format", "xml", "zzz"}).out, "<SearchResult/>\n");
}

TEST_F(FindTest, ColorShowsTheMatchInBold) {
  EXPECT_EQ(Find({"--color", "always", "-c", "Total"}).out,
            "\033[36mApp\\Main\\Proc\\Sum[4,22]\033[0m\ttotal = total + 1 ' \033[1mTotal\033[0m\n");
  EXPECT_EQ(Find({"--color", "never", "-c", "Total"}).out, kMain4);
  EXPECT_EQ(Find({"--color", "auto", "-c", "Total"}).out, kMain4) << "not a terminal";
}

TEST_F(FindTest, Stylesheets) {
  const std::string head =
      "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
      "<xsl:output omit-xml-declaration='yes'/><xsl:template match='MatchItem'>";
  const std::string tail = "</xsl:template></xsl:stylesheet>";
  folder.Write("odd.xsl", head + "<xsl:if test='@ID mod 2 = 1'>\xC3\xA9<xsl:value-of select='@ID'/></xsl:if>" + tail);
  folder.Write("gb.xsl", "<?xml version='1.0' encoding='gb2312'?>" + head + "\xBA\xBA" + tail);
  folder.Write("torn.xsl", "<xsl:stylesheet");
  folder.Write("bad.xsl", head + "<xsl:value-of select='1 +'/>" + tail);
  folder.Write("stop.xsl", head + "<xsl:message terminate='yes'>no</xsl:message>" + tail);
  EXPECT_EQ(Find({"--xsl", "odd.xsl", "total"}).out,
            "\xC3\xA9"
            "1\n\xC3\xA9"
            "3\n\xC3\xA9"
            "5\n");
  EXPECT_EQ(Find({"--xsl", "gb.xsl", "-c", "Total"}).out, "\xE6\xB1\x89\n");
  for (const std::string name : {"none.xsl", "torn.xsl", "bad.xsl", "stop.xsl", "App"}) {
    const Outcome outcome = Find({"--xsl", name, "total"});
    EXPECT_EQ(outcome.status, 2) << name;
    EXPECT_EQ(outcome.out, "") << name;
    EXPECT_EQ(outcome.err.rfind("quorvane: ", 0), 0u) << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    if (name != "stop.xsl") {
      EXPECT_NE(outcome.err.find(name), std::string::npos) << outcome.err;
    }
  }
  const Outcome json = Find({"--xsl", "torn.xsl", "--format", "count", "total"});
  EXPECT_EQ(json.out, "6\n") << "only lines are worded by a stylesheet";
}

TEST_F(FindTest, Errors) {
  struct Row {
    std::vector<std::string> args;
    std::string word;  ///< that the one line on standard error holds
  };
  const std::vector<Row> rows{
      {{""}, "TEXT"},
      {{"\r\n"}, "TEXT"},
      {{"-m", "regexp", "a(b"}, "offset 3"},
      {{"-m", "regexp", "(?<=a)b"}, "look-behind"},
      {{"-m", "pattern", "[z-a]"}, "[z-a]"},
      {{"-m", "fuzzy", "x"}, "fuzzy"},
      {{"-a", "module", "x"}, "--module"},
      {{"-a", "module", "--module", "Nowhere", "x"}, "Nowhere"},
      {{"-a", "module", "--module", "Common", "x"}, "Common"},
      {{"-a", "procedure", "--module", "Notes", "--at", "1", "x"}, "Notes"},
      {{"-a", "procedure", "--module", "Main", "x"}, "--at"},
      {{"-a", "procedure", "--module", "Main", "--at", "6", "x"},
       "--at: line 6 of Main does not exist: the module has 5"},
      {{"-a", "selection", "--module", "Main", "--select", "2,1,6,1", "x"}, "--select: line 6 of Main"},
      {{"-a", "procedure", "--module", "Main", "--file-lines", "--at", "9", "x"},
       "--at: line 9 of App/Main.bas is no line of code; those are among 2 to 8"},
      {{"-a", "procedure", "--module", "Main", "--file-lines", "--at", "4", "x"}, "line 4 of App/Main.bas"},
      {{"-a", "project", "--project", "Nowhere", "x"}, "Nowhere"},
      {{"-a", "selection", "--module", "Main", "x"}, "--select"},
      {{"-a", "selection", "--module", "Main", "--select", "2,1,1,1", "x"}, "--select"},
      {{"-a", "selection", "--module", "Main", "--select", "1,1,2", "x"}, "--select"},
      {{"-a", "procedure", "--module", "Main", "--at", "0", "x"}, "--at"},
      {{"--codepage", "klingon", "x"}, "klingon"},
      {{"--language", "de", "x"}, "de"},
      {{"--format", "pdf", "x"}, "pdf"},
      {{"-o", "no/such/folder", "total"}, "no/such/folder"},
      {{"-o", "App/Main.bas", "total"}, "App/Main.bas"},
      {{"-o", "Shop.vbg", "total"}, "Shop.vbg"},
      {{"--sideways", "x"}, "--sideways"},
  };
  for (const Row& row : rows) {
    const Outcome outcome = Find(row.args);
    EXPECT_EQ(outcome.status, 2) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_NE(outcome.err.find(row.word), std::string::npos) << row.word << " in " << outcome.err;
    EXPECT_EQ(outcome.err.rfind("quorvane: ", 0), 0u) << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
  }
  for (const std::string file : {"Gone.vbg", "App"}) {
    const Outcome outcome = Call({"find", "x", file});
    EXPECT_EQ(outcome.status, 2) << file;
    EXPECT_NE(outcome.err.find(file), std::string::npos) << outcome.err;
  }
  folder.Write("Empty.bas", "Attribute VB_Name = \"Empty\"\r\n");
  EXPECT_EQ(Call({"find", "-a", "procedure", "--at", "1", "x", "Empty.bas"}).err,
            "quorvane: --at: line 1 of Empty does not exist: the module is empty\n");
  EXPECT_EQ(Call({}).status, 2);
  EXPECT_EQ(Call({"find", "x"}).status, 2);
  EXPECT_EQ(folder.Read("Shop.vbg").substr(0, 7), "VBGROUP") << "nothing was overwritten";
}

TEST_F(FindTest, ALineWithTooManyColumnsCostsTheRestOfItsFile) {
  const std::string head = "Attribute VB_Name = \"Long\"\r\nx\r\n" + std::string(33000, 'a') + "x";
  folder.Write("Next.bas", "x");
  for (const std::string tail : {"\r\nx\r\n", "\r\n"}) {
    folder.Write("Long.bas", head + tail);
    for (const std::string mode : {"common", "pattern", "regexp"}) {
      for (const std::string format : {"lines", "vimgrep", "json", "xml", "count"}) {
        const Outcome outcome = Call({"find", "-m", mode, "--format", format, "x", "Long.bas", "Next.bas"});
        const std::string what = mode + " " + format + ": " + outcome.out;
        EXPECT_EQ(outcome.status, 0) << what;
        EXPECT_EQ(outcome.err,
                  "quorvane: warning: Long.bas:3: the line has more than 32767 columns; the rest of the file is not "
                  "searched\n")
            << what;
        const auto told = std::count(outcome.out.begin(), outcome.out.end(), '\n');
        EXPECT_EQ(told, format == "count" ? 1 : format == "xml" ? 4 : 2) << what;
        EXPECT_TRUE(format != "count" || outcome.out == "2\n") << what;
      }
    }
  }
}

TEST_F(FindTest, MissingFilesAndUnreadOptionsAreWarnings) {
  const Outcome outcome = Call({"find", "-c", "-s", "--at", "9", "Total", "Shop.vbg"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, kMain4);
  EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 3) << outcome.err;
  EXPECT_NE(outcome.err.find("quorvane: warning: "), std::string::npos) << outcome.err;
  EXPECT_NE(outcome.err.find("Gone.cls"), std::string::npos) << outcome.err;
  EXPECT_NE(outcome.err.find("--single-line"), std::string::npos) << outcome.err;
  EXPECT_NE(outcome.err.find("--at plays no part here"), std::string::npos) << outcome.err;
}

TEST_F(FindTest, LoneModulesAreAProjectAndAreActive) {
  const Outcome outcome = Call({"find", "-a", "procedure", "--at", "4", "-c", "Total", "App/Main.bas"});
  EXPECT_EQ(outcome.out, "Project1\\Main\\Proc\\Sum[4,22]\ttotal = total + 1 ' Total\n") << outcome.err;
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(FindTest, OutputFile) {
  EXPECT_EQ(Find({"-o", "result.txt", "-c", "Total"}).out, "");
  EXPECT_EQ(folder.Read("result.txt"), kMain4);
  EXPECT_EQ(Find({"--output", "result.txt", "zzz"}).status, 1);
  EXPECT_EQ(folder.Read("result.txt"), "") << "nothing found is told too";
  EXPECT_EQ(Find({"-o", "result.txt", "-m", "regexp", "a(b"}).status, 2);
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) names.push_back(entry.path().filename());
  EXPECT_EQ(names.size(), 4u) << "no temporary file is left";
}

TEST_F(FindTest, JapaneseSources) {
  folder.Write("\xE8\xA1\xA8.bas", "Attribute VB_Name = \"M\"\r\nDim \x8A\xBF\x8E\x9A As String ' \x95\x5C total\r\n");
  const std::vector<std::string> args{"find", "--format", "json", "total", "\xE8\xA1\xA8.bas"};
  const std::string expected =
      "{\"ID\":1,\"Y1\":1,\"Y2\":1,\"X1\":22,\"X2\":27,\"ScreenX1\":25,\"ScreenX2\":30,\"StartPos\":22,\"EndPos\":27,"
      "\"MatchStr\":\"total\",\"ComponentName\":\"M\",\"ProjectName\":\"Project1\",\"RelativeStartPos\":22,"
      "\"RelativeEndPos\":27,\"ProcName\":\"(Declarations)\",\"ProcType\":\"Proc\","
      "\"Line\":\"Dim \xE6\xBC\xA2\xE5\xAD\x97 As String ' \xE8\xA1\xA8 total\",\"Path\":\"\xE8\xA1\xA8.bas\","
      "\"FileLine\":2}\n";
  EXPECT_EQ(Call(args, {{"LC_ALL", "ja_JP.UTF-8"}}).out, expected) << "the code page of the locale's language";
  auto named = args;
  named.insert(named.begin() + 1, {"--codepage", "932"});
  EXPECT_EQ(Call(named).out, expected);
  EXPECT_NE(Call(args).out, expected);
}

TEST_F(FindTest, AClosedPipeEndsQuietly) {
  std::string code = "Attribute VB_Name = \"Big\"\r\n";
  for (int i = 0; i < 50000; ++i) code += "x\r\n";
  folder.Write("Big.bas", code);
  const Outcome outcome = Shell("$Q find x Big.bas | head -1; echo ${PIPESTATUS[0]}");
  EXPECT_EQ(outcome.out, "Project1\\Big\\Proc\\(Declarations)[1,1]x\n0\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(FindTest, AFullDiskIsAnError) {
  std::string code = "Attribute VB_Name = \"Big\"\r\n";
  for (int i = 0; i < 5000; ++i) code += "x\r\n";
  folder.Write("Big.bas", code);
  for (const std::string format : {"lines", "vimgrep", "json", "xml", "count"}) {
    const Outcome outcome = Shell("$Q find --format " + format + " x Big.bas > /dev/full");
    EXPECT_EQ(outcome.status, 2) << format;
    EXPECT_NE(outcome.err.find("standard output"), std::string::npos) << format << ": " << outcome.err;
  }
}

/// A find whose output nobody reads stands still in the middle of its search.
class InterruptTest : public FindTest {
 protected:
  InterruptTest() {
    std::string code = "Attribute VB_Name = \"Big\"\r\n";
    for (int i = 0; i < 60000; ++i) code += "x\r\n";
    folder.Write("Big.bas", code);
    if (pipe(pipe_) != 0) throw std::runtime_error("no pipe");
    child_ = Start({"find", "x", "Big.bas"}, pipe_[1]);
    close(pipe_[1]);
  }
  ~InterruptTest() override { close(pipe_[0]); }

  /// Waits until what stands in the pipe grows no more. Without any output the test does not run.
  void SetUp() override {
    constexpr int patience = 150;
    int waiting = 0;
    for (int i = 0; i < patience; ++i) {
      const int before = waiting;
      std::this_thread::sleep_for(std::chrono::milliseconds(200));
      ioctl(pipe_[0], FIONREAD, &waiting);
      if (waiting > 0 && waiting == before) return;
    }
    kill(child_, SIGKILL);
    FAIL() << "no output: " << Wait(child_).err;
  }

  /// Reads what comes until the other end closes; gives the number of lines.
  std::ptrdiff_t Drain() {
    std::ptrdiff_t lines = 0;
    char buffer[4096];
    for (ssize_t got = read(pipe_[0], buffer, sizeof buffer); got > 0; got = read(pipe_[0], buffer, sizeof buffer)) {
      lines += std::count(buffer, buffer + got, '\n');
    }
    return lines;
  }

  int pipe_[2] = {-1, -1};
  pid_t child_ = -1;
};

TEST_F(InterruptTest, CtrlCCancels) {
  kill(child_, SIGINT);
  const std::ptrdiff_t lines = Drain();
  const Outcome outcome = Wait(child_);
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.err, "");
  EXPECT_GT(lines, 0);
  EXPECT_LT(lines, 60000);
}

TEST_F(InterruptTest, ASecondCtrlCEnds) {
  kill(child_, SIGINT);
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  kill(child_, SIGINT);
  EXPECT_EQ(Wait(child_).status, -SIGINT);
}

TEST_F(FindTest, NoToolkitIsLoaded) {
  const Outcome outcome = Shell("ldd $Q");
  EXPECT_NE(outcome.out.find("libxml2"), std::string::npos) << outcome.out;
  EXPECT_EQ(outcome.out.find("Qt"), std::string::npos) << outcome.out;
}

}  // namespace quorvane::test
