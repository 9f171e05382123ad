#include "platform/forms/Timer.h"

#include "base/Error.h"
#include "platform/Platform.h"

namespace quorvane::forms {

namespace {

constexpr std::int32_t kLongest = 65535;

}  // namespace

Timer::Timer(std::int32_t interval, bool enabled) : enabled_(enabled) {
  SetInterval(interval);
}

Timer::~Timer() {
  Stop();
}

void Timer::SetInterval(std::int32_t milliseconds) {
  if (milliseconds < 0 || milliseconds > kLongest) {
    RaiseError(ErrorNumber::InvalidPropertyValue, u"Invalid property value: the interval of a timer");
  }
  interval_ = milliseconds;
  Restart();
}

void Timer::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  Restart();
}

void Timer::Restart() {
  Stop();
  if (!enabled_ || interval_ == 0) return;
  loop_ = &ThePlatform().Loop();
  running_ = loop_->StartTimer(interval_, [this] { Tick.Raise(); });
}

void Timer::Stop() noexcept {
  if (running_ != 0) loop_->StopTimer(running_);
  running_ = 0;
}

}  // namespace quorvane::forms
