#pragma once

#include <cstdint>

#include "platform/forms/Control.h"

namespace quorvane::forms {

/// How far something has come, between two ends.
class ProgressBar final : public Control {
 public:
  ProgressBar(std::int32_t min, std::int32_t max) : min_(min), max_(max), value_(min) {}

  std::int32_t Min() const { return min_; }
  std::int32_t Max() const { return max_; }
  std::int32_t Value() const { return value_; }
  /// Error 380 outside Min to Max.
  void SetValue(std::int32_t value);

 private:
  std::int32_t min_;
  std::int32_t max_;
  std::int32_t value_;  ///< invariant: from min_ to max_
};

}  // namespace quorvane::forms
