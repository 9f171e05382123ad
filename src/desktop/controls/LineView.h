#pragma once

#include <QLineEdit>

#include "base/Event.h"

namespace quorvane::forms {
class TextBox;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// A text of one line.
class LineView final : public QLineEdit {
 public:
  /// The model outlives this.
  LineView(forms::TextBox& box, QWidget* parent);

 private:
  void Follow();

  forms::TextBox& box_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
