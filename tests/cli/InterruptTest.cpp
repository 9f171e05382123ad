#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <thread>
#include <utility>

#include "cli/Program.h"
#include "native/files/NewFile.h"
#include "workbench/save/FileSaver.h"

namespace quorvane::test {
namespace {

/// A find whose output nobody reads stands still in the middle of its search.
class InterruptTest : public testing::Test, protected Program {
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

TEST_F(InterruptTest, ARequestToEndCancelsToo) {
  kill(child_, SIGTERM);
  Drain();
  EXPECT_EQ(Wait(child_).status, 128 + SIGTERM);
}

/// A save of two files that was killed between them.
class HalfSaveTest : public testing::Test, protected Program {
 protected:
  HalfSaveTest() {
    std::vector<workbench::FileToSave> files;
    for (const std::string name : {"A.bas", "sub/B.bas"}) {
      const std::string path = folder.Write(name, "old\r\n");
      files.push_back({path, "new\r\n", native::FileStamp::Of(path).value()});
    }
    const pid_t child = fork();
    if (child == 0) {
      workbench::SaveFiles(files, [](const char* from, const char* to) {
        if (std::string_view(to).ends_with("B.bas")) raise(SIGKILL);
        return native::MoveOver(from, to);
      });
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
  }
};

TEST_F(HalfSaveTest, IsToldAndSettled) {
  const std::string told =
      "a save of several files was cut short: 1 of 2 are saved; saved: A.bas; not saved: sub/B.bas";
  EXPECT_EQ(Shell("$Q find -l o sub/B.bas 2>&1; echo $?").out,
            "quorvane: warning: " + told +
                "; --recover finish saves the rest, back undoes it, keep leaves the files as they are\nsub/B.bas\n0\n");
  EXPECT_EQ(Shell("$Q replace --write w v A.bas 2>&1 | tail -1").out,
            "quorvane: A.bas: cannot be saved: " + told + "\n");
  for (const auto& [how, found] :
       {std::pair("finish", "new\nnew\n"), std::pair("back", "old\nold\n"), std::pair("keep", "new\nold\n")}) {
    EXPECT_EQ(
        Shell(std::string("W=$(mktemp -d); cp -a . $W; cd $W; $Q list --recover ") + how +
              " A.bas sub/B.bas >out 2>&1; wc -l <out; tr -d '\\r' <A.bas; tr -d '\\r' <sub/B.bas; rm out; find . "
              "-type f | sort; rm -r $W")
            .out,
        std::string("2\n") + found + "./A.bas\n./sub/B.bas\n")
        << how;
  }
}

}  // namespace
}  // namespace quorvane::test
