#pragma once

namespace quorvane {

/// The message loop of the one thread in which the system lives.
class MessageLoop {
 public:
  virtual ~MessageLoop() = default;

  /// Lets everything that waits happen now, nested inside the caller. Costs next to nothing when nothing waits.
  virtual void DoEvents() = 0;
};

}  // namespace quorvane
