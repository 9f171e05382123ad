#include "windows/platform/Entry.h"

#include <vector>

#include "addin/core/ErrorManager.h"
#include "base/Skip.h"

namespace quorvane::windows {

namespace {

std::vector<std::function<void()>>& Waiting() {
  static std::vector<std::function<void()>> waiting;
  return waiting;
}

}  // namespace

int Entry::depth_ = 0;

Entry::~Entry() {
  if (--depth_ == 0) Rest();
}

void Entry::WhenAtRest(std::function<void()> action) {
  Waiting().push_back(std::move(action));
  if (depth_ == 0) Rest();
}

/// An action may send messages, which are entries again: they wait until it is done.
void Entry::Rest() {
  while (!Waiting().empty()) {
    const std::vector<std::function<void()>> actions = std::exchange(Waiting(), {});
    ++depth_;
    for (const auto& action : actions) SkipErrors(action);
    --depth_;
  }
}

void ShowCaught() noexcept {
  SkipErrors([] { ShowHandledError(); });
}

}  // namespace quorvane::windows
