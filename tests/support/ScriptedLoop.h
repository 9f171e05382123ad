#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>

#include "platform/MessageLoop.h"

namespace quorvane::test {

/// A message loop that a test fills: DoEvents runs what was posted, in order, and counts itself. Time stands still but
/// in Advance.
class ScriptedLoop final : public MessageLoop {
 public:
  void DoEvents() override;
  /// Runs what was posted, then `Steps` one by one. A form that waits for more is a failure of the test and raises.
  void WaitWhile(const std::function<bool()>& waiting) override;
  TimerId StartTimer(std::int32_t milliseconds, std::function<void()> tick) override;
  void StopTimer(TimerId timer) override { timers_.erase(timer); }

  /// Runs `work` in the next DoEvents.
  void Post(std::function<void()> work) { waiting_.push_back(std::move(work)); }
  /// Lets time pass; the timers tick in the order of their times.
  void Advance(std::int64_t milliseconds);
  std::int64_t Now() const { return now_; }
  std::size_t RunningTimers() const { return timers_.size(); }

  int Yields = 0;
  std::function<void()> OnYield;            ///< runs in each DoEvents
  std::deque<std::function<void()>> Steps;  ///< what the user does while modal forms wait

 private:
  struct Running {
    std::int64_t due = 0;
    std::int64_t every = 0;
    std::shared_ptr<std::function<void()>> tick;
  };

  std::deque<std::function<void()>> waiting_;
  std::map<TimerId, Running> timers_;
  TimerId lastTimer_ = 0;
  std::int64_t now_ = 0;  ///< milliseconds
};

}  // namespace quorvane::test
