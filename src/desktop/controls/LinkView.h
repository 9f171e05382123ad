#pragma once

#include <QLabel>

#include "base/Event.h"

namespace quorvane::forms {
class Label;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// A label that is clicked as a link is, by mouse or, when it has the focus, by Space or Enter.
class LinkView final : public QLabel {
 public:
  /// The model outlives this.
  LinkView(forms::Label& label, QWidget* parent);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Follow();

  forms::Label& label_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
