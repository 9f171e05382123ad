#include "native/regexp/TimeBudget.h"

#include <algorithm>
#include <ctime>

namespace quorvane::native {

namespace {

constexpr double kSecondsPerUnit = 2e-6;
constexpr double kAllowedDebt = 0.5;
constexpr double kWatchedDebt = 0.1;

double ThreadSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

}  // namespace

void TimeBudget::Charge(std::size_t units) {
  const Clock::time_point now = Clock::now();
  const double paid = static_cast<double>(units) * kSecondsPerUnit;
  last_ = std::chrono::duration<double>(now - mdatLast).count();
  mdatLast = now;
  debt_ = std::max(0.0, debt_ + last_ - paid);
  if (debt_ < kWatchedDebt) {
    watched_ = false;
  } else if (!watched_) {
    watched_ = true;
    cpuBegin_ = ThreadSeconds();
    cpuDebt_ = kWatchedDebt;
    paidSince_ = 0;
  } else {
    paidSince_ += paid;
    cpuDebt_ = kWatchedDebt + ThreadSeconds() - cpuBegin_ - paidSince_;
  }
}

bool TimeBudget::IsTooHigh(double more) const {
  return debt_ + more > kAllowedDebt && watched_ && cpuDebt_ + more > kAllowedDebt;
}

}  // namespace quorvane::native
