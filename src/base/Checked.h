#pragma once

#include <cstdint>

#include "base/Error.h"

namespace quorvane {

/// Arithmetic of the platform's integers: a result out of range raises error 6.
template <class Int>
Int Checked(std::int64_t value) {
  const Int narrow = static_cast<Int>(value);
  if (narrow != value) RaiseError(ErrorNumber::Overflow);
  return narrow;
}

inline std::int32_t Checked32(std::int64_t value) {
  return Checked<std::int32_t>(value);
}
inline std::int16_t Checked16(std::int64_t value) {
  return Checked<std::int16_t>(value);
}

}  // namespace quorvane
