#include "windows/platform/PlatformFixture.h"

namespace quorvane::test {

using MessageLoopTest = PlatformFixture;

TEST_F(MessageLoopTest, TimersTickUntilTheyAreStoppedAlsoFromInside) {
  int ticks = 0;
  int other = 0;
  MessageLoop::TimerId timer = 0;
  MessageLoop& loop = platform.Loop();
  const MessageLoop::TimerId second = loop.StartTimer(10, [&] { ++other; });
  timer = loop.StartTimer(10, [&] {
    if (++ticks == 2) loop.StopTimer(timer);
  });
  loop.WaitWhile([&] { return other < 6; });
  EXPECT_EQ(ticks, 2);
  loop.StopTimer(second);
  loop.StopTimer(second);
  loop.StopTimer(0);
  const int before = other;
  EXPECT_FALSE(Pump([&] { return other != before; }));
}

TEST_F(MessageLoopTest, WhatIsPostedRunsInOrderAndNestedTurnsSeeIt) {
  std::string order;
  platform.Queue().Post([&] {
    order += "a";
    platform.Queue().Post([&] { order += "c"; });
    platform.Loop().WaitWhile([&] { return order.size() < 3; });
    order += "d";
  });
  platform.Queue().Post([&] { order += "b"; });
  EXPECT_TRUE(Pump([&] { return order.size() == 4; }));
  EXPECT_EQ(order, "abcd");
}

/// The host's own loop has to see the end of the program, whichever loop took it first.
TEST_F(MessageLoopTest, TheEndOfTheProgramIsLeftForTheLoopAround) {
  ::PostQuitMessage(7);
  platform.Loop().WaitWhile([] { return true; });
  platform.Loop().DoEvents();
  MSG message;
  ASSERT_TRUE(::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 7U);
}

TEST_F(MessageLoopTest, ManyYieldsCostNextToNothing) {
  int handled = 0;
  platform.Queue().Post([&] { ++handled; });
  const DWORD begin = ::GetTickCount();
  for (int i = 0; i < 200000; ++i) platform.Loop().DoEvents();
  EXPECT_EQ(handled, 1);
  EXPECT_LT(::GetTickCount() - begin, 1000U);
}

/// An object that is given up while something of it stands on the stack goes after that.
TEST_F(MessageLoopTest, ABuriedWindowGoesBehindTheOutermostEntry) {
  auto window = std::make_unique<TestWindow>(WS_OVERLAPPEDWINDOW | WS_VISIBLE);
  const HWND handle = window->Handle();
  bool stood = false;
  platform.Queue().Post([&] {
    windows::Window::Bury(std::move(window));
    stood = ::IsWindow(handle) && !::IsWindowVisible(handle);
  });
  EXPECT_TRUE(Pump([&] { return !::IsWindow(handle); }));
  EXPECT_TRUE(stood);
}

}  // namespace quorvane::test
