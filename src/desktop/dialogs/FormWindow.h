#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "base/Event.h"
#include "desktop/dialogs/FloatingPlace.h"

namespace quorvane::forms {
class Dialog;
class Form;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

class QtWindows;
class ViewFactory;

/// The window of one open form, of a size that its view chooses, or, without a border, the form. Follows caption,
/// visibility, modality and place of the form; the user's close box goes to the form, which decides.
class FormWindow final : public QWidget {
 public:
  /// The window belongs to `owner`, above which it stays, and keeps the form until it goes itself.
  FormWindow(std::shared_ptr<forms::Form> form, const ViewFactory& views, QtWindows& windows, QWidget* owner);

  void setVisible(bool visible) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void Follow();
  void TakePlace();
  void Show();
  void ComeToFront();
  void TellSize();
  QWidget* OwnerWindow() const;

  std::shared_ptr<forms::Form> form_;
  forms::Dialog* dialog_;  ///< the form when it is one, else nothing
  QtWindows& windows_;
  bool floats_;  ///< without a border, of the size that the form says, never active
  FloatingPlace floating_;
  bool busy_ = false;
  std::optional<QPoint> followed_;  ///< the form's place that the window was last given or told, on the screen
  Subscription changed_;
  Subscription shownAgain_;
};

}  // namespace desktop
}  // namespace quorvane
