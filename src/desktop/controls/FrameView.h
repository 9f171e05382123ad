#pragma once

#include <QGroupBox>

#include "base/Event.h"

namespace quorvane::forms {
class Frame;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// A captioned border around other controls.
class FrameView final : public QGroupBox {
 public:
  /// The model outlives this.
  FrameView(forms::Frame& frame, QWidget* parent);

 private:
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
