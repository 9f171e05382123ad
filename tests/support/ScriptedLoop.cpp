#include "support/ScriptedLoop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "base/Error.h"

namespace quorvane::test {

namespace {

void RunFirst(std::deque<std::function<void()>>& queue) {
  const auto work = std::move(queue.front());
  queue.pop_front();
  work();
}

}  // namespace

void ScriptedLoop::DoEvents() {
  ++Yields;
  if (OnYield) OnYield();
  while (!waiting_.empty()) RunFirst(waiting_);
}

void ScriptedLoop::WaitWhile(const std::function<bool()>& waiting) {
  while (waiting()) {
    if (waiting_.empty() && Steps.empty()) {
      ADD_FAILURE() << "a modal form waits for a user who does nothing";
      RaiseError(ErrorNumber::Internal, u"nothing left to wait for");
    }
    RunFirst(waiting_.empty() ? Steps : waiting_);
  }
}

MessageLoop::TimerId ScriptedLoop::StartTimer(std::int32_t milliseconds, std::function<void()> tick) {
  EXPECT_GT(milliseconds, 0);
  timers_[++lastTimer_] = {now_ + milliseconds, milliseconds, std::make_shared<std::function<void()>>(std::move(tick))};
  return lastTimer_;
}

void ScriptedLoop::Advance(std::int64_t milliseconds) {
  const std::int64_t end = now_ + milliseconds;
  for (;;) {
    const auto next = std::ranges::min_element(timers_, {}, [](const auto& timer) { return timer.second.due; });
    if (next == timers_.end() || next->second.due > end) break;
    now_ = std::max(now_, next->second.due);
    next->second.due += next->second.every;
    const auto tick = next->second.tick;  // the tick may stop its timer
    (*tick)();
  }
  now_ = end;
}

}  // namespace quorvane::test
