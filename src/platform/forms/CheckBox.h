#pragma once

#include <cstdint>

#include "platform/forms/CaptionedControl.h"

namespace quorvane::forms {

/// Value is 0 clear, 1 ticked or 2 gray.
class CheckBox final : public CaptionedControl {
 public:
  std::int16_t Value() const { return value_; }
  /// Raises Click when the value is another one. Error 380 for a value that is none.
  void SetValue(std::int16_t value);

  /// The user's click: a clear box becomes ticked, any other clear. A box that is disabled or invisible takes none.
  void Press();

  Event<> Click;

 private:
  std::int16_t value_ = 0;
};

}  // namespace quorvane::forms
