#pragma once

#include <QRadioButton>

#include "base/Event.h"

namespace quorvane {

class OptionButton;

namespace desktop {

/// One button of a group, of which the group says whether it is set.
class OptionView final : public QRadioButton {
 public:
  /// The model outlives this.
  OptionView(OptionButton& option, QWidget* parent);

 protected:
  bool event(QEvent* event) override;

 private:
  void Follow();

  OptionButton& option_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
