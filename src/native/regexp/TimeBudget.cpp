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
  mdblLast = std::chrono::duration<double>(now - mdatLast).count();
  mdatLast = now;
  mdblDebt = std::max(0.0, mdblDebt + mdblLast - paid);
  if (mdblDebt < kWatchedDebt) {
    mblnWatched = false;
  } else if (!mblnWatched) {
    mblnWatched = true;
    mdblCpuBegin = ThreadSeconds();
    mdblCpuDebt = kWatchedDebt;
    mdblPaidSince = 0;
  } else {
    mdblPaidSince += paid;
    mdblCpuDebt = kWatchedDebt + ThreadSeconds() - mdblCpuBegin - mdblPaidSince;
  }
}

bool TimeBudget::IsTooHigh(double more) const {
  return mdblDebt + more > kAllowedDebt && mblnWatched && mdblCpuDebt + more > kAllowedDebt;
}

}  // namespace quorvane::native
