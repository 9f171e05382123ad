#pragma once

#include <memory>

#include "platform/forms/CaptionedControl.h"

namespace quorvane::forms {

class CommandButton final : public CaptionedControl {
 public:
  /// True during its own Click alone.
  bool Value() const { return *pressed_; }

  /// The user's press by mouse or key; a button that is disabled or invisible takes none. It may go during its Click.
  void Press();

  Event<bool&> Pressing;  ///< before Click; true: the view holds the press back, and has told why
  Event<> Click;

 private:
  std::shared_ptr<bool> pressed_ = std::make_shared<bool>(false);  ///< never nothing
};

}  // namespace quorvane::forms
