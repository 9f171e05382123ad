#pragma once

namespace quorvane {

/// Runs one step of a walk that goes on whatever becomes of its steps. True when the step raised nothing.
template <class Step>
bool SkipErrors(Step step) noexcept {
  try {
    step();
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace quorvane
