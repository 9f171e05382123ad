#pragma once

#include <QPushButton>
#include <functional>

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

  /// Presses the model's button where the user presses this one; another may be put in its place, which calls it.
  std::function<void()> Press;

 protected:
  bool event(QEvent* event) override;

 private:
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
