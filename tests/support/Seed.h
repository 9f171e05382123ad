#pragma once

#include <cstdio>
#include <cstdlib>
#include <random>

namespace quorvane::test {

/// What a random run starts from, printed before it; the environment variable QUORVANE_SEED repeats one.
inline unsigned NewSeed() {
  const char* const given = std::getenv("QUORVANE_SEED");
  const unsigned seed =
      given == nullptr ? std::random_device()() : static_cast<unsigned>(std::strtoul(given, nullptr, 10));
  std::printf("QUORVANE_SEED=%u\n", seed);
  std::fflush(stdout);
  return seed;
}

}  // namespace quorvane::test
