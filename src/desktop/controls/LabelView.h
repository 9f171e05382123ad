#pragma once

#include <QLabel>

#include "base/Event.h"

namespace quorvane::forms {
class Label;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// A label's text; an access key in it leads to its buddy.
class LabelView final : public QLabel {
 public:
  /// The model outlives this.
  LabelView(forms::Label& label, QWidget* parent);

 private:
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
