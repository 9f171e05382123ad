#pragma once

#include <cstdint>
#include <functional>

namespace quorvane {

/// The message loop of the one thread in which the system lives.
class MessageLoop {
 public:
  using TimerId = std::uint32_t;  ///< 0: no timer

  virtual ~MessageLoop() = default;

  /// Lets everything that waits happen now, nested inside the caller. Costs next to nothing when nothing waits.
  virtual void DoEvents() = 0;

  /// Runs the loop, nested inside the caller, for as long as `waiting` gives true: once before anything happens, then
  /// after each event. Raises error 445 where the platform cannot wait.
  virtual void WaitWhile(const std::function<bool()>& waiting);

  /// Calls `tick` from the loop every `milliseconds` (above 0) until StopTimer; ticks that the loop was too busy for
  /// are not made up for. Raises error 445 where the platform has no timers.
  virtual TimerId StartTimer(std::int32_t milliseconds, std::function<void()> tick);
  /// No tick comes after this, also when called inside one. Does nothing with a timer that is not running.
  virtual void StopTimer(TimerId timer);
};

}  // namespace quorvane
