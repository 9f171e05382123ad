#include "cli/Interrupt.h"

#include <windows.h>

#include <atomic>

#include "cli/ExitStatus.h"

namespace quorvane::cli {

namespace {

std::atomic<bool> interrupted = false;

/// Comes on a thread of its own. The second one is not taken: the end.
BOOL WINAPI OnInterrupt(DWORD event) {
  const bool ours = event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
  return ours && !interrupted.exchange(true) ? TRUE : FALSE;
}

}  // namespace

void CatchInterrupt() {
  SetConsoleCtrlHandler(&OnInterrupt, TRUE);
}

bool Interrupted() {
  return interrupted;
}

int InterruptStatus() {
  return kStatusCanceled;
}

}  // namespace quorvane::cli
