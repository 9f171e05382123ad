#pragma once

#include <cstdint>

namespace quorvane::bridge {

/// The host cannot tell whether a module's text is still the one that was read. This number stands in for that: between
/// two moments at which it is the same, nobody had the chance to change any code. It moves with each of our own writes,
/// and whoever dispatches messages moves it for each that lets the user, or another program, at the code. Without it
/// what is derived from a text would have to be made anew for each match.
class HostEpoch {
 public:
  std::uint64_t Now() const { return now_; }
  void Advance() { ++now_; }

  /// False for the messages that draw, that tick and that follow the mouse; true for all others.
  static bool MayChangeCode(std::uint32_t message);
  /// What a message loop or a message hook calls for each message, before it is dispatched.
  void Follow(std::uint32_t message) {
    if (MayChangeCode(message)) Advance();
  }

 private:
  std::uint64_t now_ = 1;
};

}  // namespace quorvane::bridge
