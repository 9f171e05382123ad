#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "base/Error.h"

namespace quorvane::test {

/// An error that was raised, held against its number, against "number description", or asked for its words. Number 0:
/// there was none.
struct RaisedError : Error {
  RaisedError() = default;
  explicit RaisedError(const Error& error) : Error(error) {}

  std::string Told() const { return std::to_string(Number) + " " + what(); }
  bool Says(std::string_view words) const { return Told().find(words) != std::string::npos; }
  bool operator==(int number) const { return Number == number; }
  bool operator==(std::string_view told) const { return Told() == told; }
  friend std::ostream& operator<<(std::ostream& out, const RaisedError& error) { return out << error.Told(); }
};

/// The error that `action` raises.
template <class Action>
RaisedError Raised(Action action) {
  try {
    action();
  } catch (const Error& error) {
    return RaisedError(error);
  }
  return {};
}

}  // namespace quorvane::test
