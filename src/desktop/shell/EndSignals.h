#pragma once

#include <QSocketNotifier>
#include <array>
#include <memory>

#include "base/Event.h"

namespace quorvane::desktop {

/// The signals by which the system asks a program to end, as an event of the message loop: SIGTERM, SIGHUP unless it is
/// ignored, as under nohup, and SIGINT. A second one of a kind ends the process at once, as without this. One at a
/// time.
class EndSignals {
 public:
  /// Raises error 75 when the system has no pipe to give.
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  Event<int> Came;  ///< the number of the signal

 private:
  void Read();

  std::array<int, 2> pipe_{-1, -1};
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace quorvane::desktop
