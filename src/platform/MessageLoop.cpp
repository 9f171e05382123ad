#include "platform/MessageLoop.h"

#include "base/Error.h"

namespace quorvane {

void MessageLoop::WaitWhile(const std::function<bool()>&) {
  RaiseError(ErrorNumber::ActionNotSupported, u"This platform cannot wait for a form");
}

MessageLoop::TimerId MessageLoop::StartTimer(std::int32_t, std::function<void()>) {
  RaiseError(ErrorNumber::ActionNotSupported, u"This platform has no timers");
}

void MessageLoop::StopTimer(TimerId) {}

}  // namespace quorvane
