// A handler may do next to nothing, so it writes the signal's number into a pipe; the message loop reads it from there
// like any other input.
#include "desktop/shell/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "base/Error.h"

namespace quorvane::desktop {

namespace {

constexpr std::array kSignals = {SIGTERM, SIGHUP, SIGINT};

int toLoop = -1;
std::array<struct sigaction, kSignals.size()> before;

extern "C" void OnEndSignal(int signal) {
  const int kept = errno;
  const auto byte = static_cast<unsigned char>(signal);
  [[maybe_unused]] const auto written = ::write(toLoop, &byte, 1);  // a full pipe has told already
  errno = kept;
}

}  // namespace

EndSignals::EndSignals() {
  if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) RaiseError(ErrorNumber::PathFileAccess);
  toLoop = pipe_[1];
  notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { Read(); });
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    ::sigaction(kSignals[i], nullptr, &before[i]);
    if (before[i].sa_handler == SIG_IGN) continue;
    struct sigaction action = {};
    action.sa_handler = OnEndSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    ::sigaction(kSignals[i], &action, nullptr);
  }
}

EndSignals::~EndSignals() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], &before[i], nullptr);
  toLoop = -1;
  notifier_.reset();
  for (const int end : pipe_) ::close(end);
}

void EndSignals::Read() {
  unsigned char signal = 0;
  while (::read(pipe_[0], &signal, 1) == 1) Came.Raise(signal);
}

}  // namespace quorvane::desktop
