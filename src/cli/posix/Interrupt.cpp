#include "cli/Interrupt.h"

#include <csignal>

namespace quorvane::cli {

namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void OnInterrupt(int) {
  interrupted = 1;
}

}  // namespace

void CatchInterrupt() {
  struct sigaction action = {};
  action.sa_handler = OnInterrupt;
  action.sa_flags = static_cast<int>(SA_RESETHAND);  // the second one finds the default: the end
  sigaction(SIGINT, &action, nullptr);
}

bool Interrupted() {
  return interrupted != 0;
}

}  // namespace quorvane::cli
