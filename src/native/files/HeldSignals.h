#pragma once

namespace quorvane::native {

/// While it lives, the signals by which a program is asked to end wait, as far as they come to this thread: Ctrl-C, the
/// end of the session, a request to end. Then they have their effect. Where the system knows no such signals nothing
/// happens.
class HeldSignals {
 public:
  HeldSignals();
  ~HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

  /// Whether one of them has come since.
  bool Any() const;

 private:
  struct Mask;
  Mask* before_;
};

}  // namespace quorvane::native
