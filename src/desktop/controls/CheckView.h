#pragma once

#include <QCheckBox>

#include "base/Event.h"

namespace quorvane::forms {
class CheckBox;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// A box that is clear, ticked or gray.
class CheckView final : public QCheckBox {
 public:
  /// The model outlives this.
  CheckView(forms::CheckBox& box, QWidget* parent);

 protected:
  bool event(QEvent* event) override;

 private:
  void Follow();

  forms::CheckBox& box_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
