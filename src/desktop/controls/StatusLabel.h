#pragma once

#include <QWidget>
#include <memory>

#include "base/Event.h"

namespace quorvane::forms {
class Label;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// One line of text that may change with every match of a running task: it is drawn, not laid out, cut at its end when
/// it is too long, and then told in full by its tool tip.
class StatusLabel final : public QWidget {
 public:
  StatusLabel(std::shared_ptr<forms::Label> label, QWidget* parent);

  /// The height of a line in the font of a widget, with air around it; in pixels.
  static int HeightOf(const QWidget& widget);
  /// What is shown while the label says nothing.
  void SetNote(const QString& note);
  const QString& Note() const { return note_; }

  /// What is shown, in full.
  QString Text() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  std::shared_ptr<forms::Label> label_;
  QString note_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
