#pragma once

#include <cstdint>

#include "base/Event.h"
#include "platform/MessageLoop.h"

namespace quorvane::forms {

/// The timer control: raises Tick every Interval milliseconds while it is enabled and the interval is not 0. Changing
/// the interval starts the time anew. Without a change of state nothing is asked of the message loop.
class Timer {
 public:
  Timer() = default;
  /// Set up as on a form; `interval` as SetInterval.
  Timer(std::int32_t interval, bool enabled);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  std::int32_t Interval() const { return interval_; }
  /// 0 to 65535; error 380 beyond.
  void SetInterval(std::int32_t milliseconds);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  Event<> Tick;

 private:
  void Restart();
  void Stop() noexcept;

  std::int32_t interval_ = 0;
  bool enabled_ = true;
  MessageLoop* loop_ = nullptr;  ///< the loop in which running_ counts
  MessageLoop::TimerId running_ = 0;
};

}  // namespace quorvane::forms
