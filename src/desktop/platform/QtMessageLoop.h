#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>

#include "platform/MessageLoop.h"

class QTimer;

namespace quorvane::desktop {

/// The toolkit's event loop. A task yields once a match, thousands of times a second: a yield looks at the clock, and
/// only when the user could begin to notice does it hand over. The pause between two hand-overs grows with what the
/// last one cost, so that painting never takes more than a fraction of the task's time, and stays far below 100 ms.
class QtMessageLoop final : public MessageLoop {
 public:
  QtMessageLoop();
  ~QtMessageLoop() override;

  void DoEvents() override;
  void WaitWhile(const std::function<bool()>& waiting) override;
  TimerId StartTimer(std::int32_t milliseconds, std::function<void()> tick) override;
  void StopTimer(TimerId timer) override;

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point nextYield_;
  std::unordered_map<TimerId, std::unique_ptr<QTimer>> timers_;
  TimerId lastTimer_ = 0;
};

}  // namespace quorvane::desktop
