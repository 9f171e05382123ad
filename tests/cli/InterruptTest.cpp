#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <stdexcept>
#include <string>
#include <thread>

#include "cli/Program.h"

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

}  // namespace
}  // namespace quorvane::test
