#pragma once

#include <chrono>
#include <cstddef>

namespace quorvane::native {

/// Tells a search that goes on without end from one that is merely long: each unit of text that the search leaves
/// behind pays for some time, and time that nothing paid for piles up as debt. Debt is carried from text to text, for
/// many short texts can cost as much as one long one; what was paid in advance is not, so that a cheap beginning buys
/// no endless end. From a small debt on, the processor's time counts instead of the clock's: another program may have
/// had the processor.
class TimeBudget {
 public:
  /// Begins a stretch of work.
  void Start() { mdatLast = Clock::now(); }
  /// Books the time since Start or the last call. `units` of text are now behind.
  void Charge(std::size_t units);
  void Reset() { *this = {}; }

  /// Whether the debt, with `more` seconds on top of it, is more than a search may owe.
  bool IsTooHigh(double more = 0) const;
  /// Of the last Charge.
  double LastSeconds() const { return last_; }

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point mdatLast;
  double last_ = 0;
  double debt_ = 0;       ///< seconds by the clock, never negative
  bool watched_ = false;  ///< the debt is so high that the processor's time is taken too
  double cpuBegin_ = 0;   ///< processor time when the watch began
  double cpuDebt_ = 0;    ///< what it owes by processor time, while watched
  double paidSince_ = 0;  ///< since the watch began
};

}  // namespace quorvane::native
