#pragma once

#include "platform/forms/CaptionedControl.h"

namespace quorvane {

class CommandButton final : public CaptionedControl {
 public:
  /// The user's press by mouse or key; a button that is disabled or invisible takes none.
  void Press();

  Event<> Click;
};

}  // namespace quorvane
