#pragma once

#include <QRadioButton>

#include "base/Event.h"

namespace quorvane::forms {
class OptionButton;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// One button of a group, of which the group says whether it is set.
class OptionView final : public QRadioButton {
 public:
  /// The model outlives this.
  OptionView(forms::OptionButton& option, QWidget* parent);

 protected:
  bool event(QEvent* event) override;

 private:
  void Follow();

  forms::OptionButton& option_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
