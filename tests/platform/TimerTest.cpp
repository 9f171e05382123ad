#include <gtest/gtest.h>

#include "platform/forms/Timer.h"
#include "support/Raised.h"
#include "support/TestPlatform.h"

namespace quorvane {
namespace {

using Times = std::vector<std::int64_t>;

class TimerTest : public testing::Test {
 protected:
  void Listen(forms::Timer& timer) {
    onTick_ = timer.Tick.Subscribe([this] { ticks_.push_back(loop_.Now()); });
  }

  test::TestPlatform platform_;
  test::ScriptedLoop& loop_ = platform_.loop;
  Times ticks_;
  Subscription onTick_;
};

TEST_F(TimerTest, TicksOnlyWhileEnabledAndWithAnInterval) {
  forms::Timer timer(0, true);
  Listen(timer);
  loop_.Advance(1000);
  EXPECT_EQ(loop_.RunningTimers(), 0U);
  timer.SetInterval(10);
  loop_.Advance(35);
  timer.SetEnabled(false);
  loop_.Advance(100);
  EXPECT_EQ(loop_.RunningTimers(), 0U);
  timer.SetEnabled(true);
  timer.SetEnabled(true);
  loop_.Advance(9);
  timer.SetInterval(20);  // the time starts anew
  loop_.Advance(20);
  EXPECT_EQ(ticks_, (Times{1010, 1020, 1030, 1164}));
}

TEST_F(TimerTest, MayBeSwitchedOffOrDestroyedByItsOwnTick) {
  forms::Timer once(10, true);
  Listen(once);
  const Subscription off = once.Tick.Subscribe([&] { once.SetEnabled(false); });
  loop_.Advance(100);
  EXPECT_EQ(ticks_, (Times{10}));

  auto gone = std::make_unique<forms::Timer>(10, true);
  const Subscription destroy = gone->Tick.Subscribe([&] { gone.reset(); });
  loop_.Advance(100);
  EXPECT_EQ(gone, nullptr);
  EXPECT_EQ(loop_.RunningTimers(), 0U);
}

TEST_F(TimerTest, RefusesAnIntervalOutOfRangeAndKeepsItsOwn) {
  forms::Timer timer(10, false);
  for (const std::int32_t bad : {-1, 65536}) {
    EXPECT_EQ(test::Raised([&] { timer.SetInterval(bad); }), 380) << bad;
  }
  EXPECT_EQ(timer.Interval(), 10);
}

}  // namespace
}  // namespace quorvane
