#include "windows/com/Entry.h"

#include <atomic>
#include <utility>
#include <vector>

#include "base/Skip.h"
#include "windows/com/Win32.h"

namespace quorvane::com {

namespace {

std::vector<std::function<void()>>& Waiting() {
  static std::vector<std::function<void()>> waiting;
  return waiting;
}

thread_local int depth = 0;
/// Whose entries the waiting actions wait for; 0 when none waits.
std::atomic<DWORD> waitingThread{0};

}  // namespace

Entry::Entry() {
  ++depth;
}

Entry::~Entry() {
  if (depth == 1 && waitingThread == ::GetCurrentThreadId()) Rest();
  --depth;
}

int Entry::Depth() {
  return depth;
}

void Entry::WhenAtRest(std::function<void()> action) {
  const Entry entry;
  Waiting().push_back(std::move(action));
  waitingThread = ::GetCurrentThreadId();
}

/// An action may make entries again: what they leave waits until it is done.
void Entry::Rest() {
  while (!Waiting().empty()) {
    const std::vector<std::function<void()>> actions = std::exchange(Waiting(), {});
    ++depth;
    for (const auto& action : actions) SkipErrors(action);
    --depth;
  }
  waitingThread = 0;
}

}  // namespace quorvane::com
