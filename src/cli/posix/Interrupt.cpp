#include "cli/Interrupt.h"

#include <csignal>

namespace quorvane::cli {

namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void OnInterrupt(int signal) {
  interrupted = signal;
}

}  // namespace

void CatchInterrupt() {
  struct sigaction action = {};
  action.sa_handler = OnInterrupt;
  action.sa_flags = static_cast<int>(SA_RESETHAND);  // the second one finds the default: the end
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
  struct sigaction before = {};  // nohup has it ignored, and so it stays
  sigaction(SIGHUP, nullptr, &before);
  if (before.sa_handler != SIG_IGN) sigaction(SIGHUP, &action, nullptr);
}

bool Interrupted() {
  return interrupted != 0;
}

int InterruptStatus() {
  constexpr int kSignalStatus = 128;  // as a shell counts it
  return kSignalStatus + interrupted;
}

}  // namespace quorvane::cli
