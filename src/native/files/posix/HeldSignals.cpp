#include "native/files/HeldSignals.h"

#include <signal.h>

#include <array>

namespace quorvane::native {

namespace {

constexpr std::array kEnding = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

}  // namespace

struct HeldSignals::Mask {
  sigset_t signals;
};

HeldSignals::HeldSignals() : before_(new Mask) {
  sigset_t held;
  sigemptyset(&held);
  for (const int signal : kEnding) sigaddset(&held, signal);
  pthread_sigmask(SIG_BLOCK, &held, &before_->signals);
}

HeldSignals::~HeldSignals() {
  pthread_sigmask(SIG_SETMASK, &before_->signals, nullptr);
  delete before_;
}

bool HeldSignals::Any() const {
  sigset_t come;
  sigpending(&come);
  for (const int signal : kEnding) {
    if (sigismember(&come, signal) == 1 && sigismember(&before_->signals, signal) == 0) return true;
  }
  return false;
}

}  // namespace quorvane::native
