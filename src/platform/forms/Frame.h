#pragma once

#include <memory>
#include <vector>

#include "platform/forms/CaptionedControl.h"

namespace quorvane::forms {

/// A captioned border around other controls.
class Frame final : public CaptionedControl {
 public:
  std::vector<std::shared_ptr<Control>> Children;  ///< from top to bottom
};

}  // namespace quorvane::forms
