#pragma once

#include <cstdint>
#include <string>

#include "platform/forms/Control.h"

namespace quorvane::forms {

/// A thumb on a scale of whole positions.
class Slider final : public Control {
 public:
  Slider(std::int32_t min, std::int32_t max) : min_(min), max_(max), value_(min) {}

  std::int32_t Min() const { return min_; }
  std::int32_t Max() const { return max_; }
  std::int32_t Value() const { return value_; }
  /// A position beyond an end becomes that end. Raises Change when the position is another one.
  void SetValue(std::int32_t value);

  /// Shown at the thumb while it moves.
  const std::u16string& Text() const { return text_; }
  void SetText(const std::u16string& text);

  /// The user moves the thumb; a slider that is disabled or invisible stays.
  void Drag(std::int32_t value);

  Event<> Change;

 private:
  std::int32_t min_;
  std::int32_t max_;
  std::int32_t value_;  ///< invariant: from min_ to max_
  std::u16string text_;
};

}  // namespace quorvane::forms
