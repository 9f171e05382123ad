#pragma once

#include "platform/forms/Control.h"

namespace quorvane::forms {

/// A box that holds other controls. Whoever shows it tells its size by Move; its handlers then place what lies in it.
class PictureBox final : public Control {};

}  // namespace quorvane::forms
