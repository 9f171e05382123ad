#pragma once

#include <QPushButton>

#include "base/Event.h"

namespace quorvane::forms {
class CommandButton;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// A button; its access key presses it at once.
class ButtonView final : public QPushButton {
 public:
  /// The model outlives this.
  ButtonView(forms::CommandButton& button, QWidget* parent);

 protected:
  bool event(QEvent* event) override;

 private:
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
