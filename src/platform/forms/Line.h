#pragma once

#include "platform/Canvas.h"
#include "platform/forms/Control.h"

namespace quorvane::forms {

/// A thin line as decoration.
class Line final : public Control {
 public:
  Color BorderColor = 0;
};

}  // namespace quorvane::forms
