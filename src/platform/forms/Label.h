#pragma once

#include <cstdint>

#include "base/Event.h"
#include "platform/forms/CaptionedControl.h"

namespace quorvane {

/// A line of text. Writing a caption costs next to nothing: a view that hears Changed shows the last one of a burst.
class Label final : public CaptionedControl {
 public:
  Event<std::int16_t, std::int16_t, float, float> MouseDown;  ///< Button (1 left, 2 right, 4 middle), Shift, x, y
};

}  // namespace quorvane
