#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <random>
#include <stdexcept>
#include <string>

namespace quorvane::test {

/// Child processes that are killed at random points of their work. QUORVANE_KILLS says how many, QUORVANE_SEED which
/// points.
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

  /// For a failing test to print.
  std::string Words() const { return "QUORVANE_SEED=" + std::to_string(seed_); }

 private:
  static constexpr useconds_t kLongest = 15'000;  // µs; some saves

  static unsigned Number(const char* name, unsigned usual) {
    const char* const value = std::getenv(name);
    return value == nullptr ? usual : static_cast<unsigned>(std::strtoul(value, nullptr, 10));
  }

  int count_ = static_cast<int>(Number("QUORVANE_KILLS", 20));
  unsigned seed_ = Number("QUORVANE_SEED", std::random_device()());
  std::mt19937 random_{seed_};
};

}  // namespace quorvane::test
