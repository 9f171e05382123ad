#include "platform/MessageLoop.h"

#include "base/Error.h"

namespace quorvane {

namespace {

constexpr std::int32_t kActionNotSupported = 445;

}  // namespace

void MessageLoop::WaitWhile(const std::function<bool()>&) {
  throw Error(kActionNotSupported, u"This platform cannot wait for a form");
}

MessageLoop::TimerId MessageLoop::StartTimer(std::int32_t, std::function<void()>) {
  throw Error(kActionNotSupported, u"This platform has no timers");
}

void MessageLoop::StopTimer(TimerId) {}

}  // namespace quorvane
