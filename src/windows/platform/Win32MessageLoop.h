#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

#include "platform/MessageLoop.h"
#include "windows/com/Win32.h"

namespace quorvane::windows {

/// The message queue of this thread. A task yields once a match, thousands of times a second: a yield looks at the
/// clock, and only when the user could begin to notice does it serve the queue. The pause between two such turns grows
/// with what the last one cost, so that painting never takes more than a fraction of the task's time, and stays far
/// below 100 ms.
class Win32MessageLoop final : public MessageLoop {
 public:
  Win32MessageLoop();
  ~Win32MessageLoop() override;

  void DoEvents() override;
  void WaitWhile(const std::function<bool()>& waiting) override;
  TimerId StartTimer(std::int32_t milliseconds, std::function<void()> tick) override;
  void StopTimer(TimerId timer) override;

  /// Runs `action` from the queue, soon, as an event of its own. Dropped when this ends first.
  void Post(std::function<void()> action);
  /// The hidden window that receives them, for as long as this lives.
  HWND Window() const;

 private:
  class Receiver;
  using Clock = std::chrono::steady_clock;

  Clock::time_point nextYield_;
  std::unique_ptr<Receiver> receiver_;
};

}  // namespace quorvane::windows
