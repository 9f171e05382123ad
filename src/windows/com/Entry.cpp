#include "windows/com/Entry.h"

#include <utility>
#include <vector>

#include "base/Skip.h"

namespace quorvane::com {

namespace {

std::vector<std::function<void()>>& Waiting() {
  static std::vector<std::function<void()>> waiting;
  return waiting;
}

}  // namespace

int Entry::depth_ = 0;

Entry::~Entry() {
  if (depth_ == 1) Rest();
  --depth_;
}

void Entry::WhenAtRest(std::function<void()> action) {
  const Entry entry;
  Waiting().push_back(std::move(action));
}

/// An action may make entries again: what they leave waits until it is done.
void Entry::Rest() {
  while (!Waiting().empty()) {
    const std::vector<std::function<void()>> actions = std::exchange(Waiting(), {});
    ++depth_;
    for (const auto& action : actions) SkipErrors(action);
    --depth_;
  }
}

}  // namespace quorvane::com
