#pragma once

#include <QLineEdit>

#include "base/Event.h"

namespace quorvane {

class TextBox;

namespace desktop {

/// A text of one line.
class LineView final : public QLineEdit {
 public:
  /// The model outlives this.
  LineView(TextBox& box, QWidget* parent);

 private:
  void Follow();

  TextBox& box_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
