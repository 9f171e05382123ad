#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "support/Seed.h"

namespace quorvane::test {

/// Child processes that are killed at random points of their work. QUORVANE_KILLS says how many.
class Kills {
 public:
  /// Runs `work(turn)` for turn 0, 1, 2 … in a child and kills it after a random time; then `check()` here. So again
  /// and again.
  template <class Work, class Check>
  void Run(Work work, Check check) {
    for (int kill = 0; kill < count_; ++kill) {
      const pid_t child = ::fork();
      if (child < 0) throw std::runtime_error("cannot fork");
      if (child == 0) {
        for (int turn = 0;; ++turn) work(turn);
      }
      ::usleep(std::uniform_int_distribution<useconds_t>(0, kLongest)(random_));
      ::kill(child, SIGKILL);
      int status = 0;
      if (::waitpid(child, &status, 0) != child || !WIFSIGNALED(status)) throw std::runtime_error("it ended by itself");
      check();
    }
  }

 private:
  static constexpr useconds_t kLongest = 15'000;  // µs; some saves

  static int Count() {
    const char* const value = std::getenv("QUORVANE_KILLS");
    return value == nullptr ? 20 : std::atoi(value);
  }

  int count_ = Count();
  std::mt19937 random_{NewSeed()};
};

}  // namespace quorvane::test
