#pragma once

#include <cstdint>

#include "base/Event.h"
#include "platform/Canvas.h"
#include "platform/forms/CaptionedControl.h"

namespace quorvane::forms {

/// A line of text. Writing a caption costs next to nothing: a view that hears Changed shows the last one of a burst.
class Label final : public CaptionedControl {
 public:
  Color ForeColor = 0;       ///< black: the view's own
  bool HandPointer = false;  ///< whether the mouse shows a hand over it

  /// The user's click; a label that is disabled or invisible takes none.
  void Press() {
    if (Enabled() && Visible()) Click.Raise();
  }

  Event<> Click;
  Event<std::int16_t, std::int16_t, float, float> MouseDown;  ///< Button (1 left, 2 right, 4 middle), Shift, x, y
};

}  // namespace quorvane::forms
