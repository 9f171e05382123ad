#pragma once

#include <cstdint>

#include "base/Error.h"

namespace quorvane::test {

/// The number of the error that `action` raises, 0 when it raises none.
template <class Action>
std::int32_t ErrorOf(Action action) {
  try {
    action();
  } catch (const Error& e) {
    return e.Number;
  }
  return 0;
}

}  // namespace quorvane::test
