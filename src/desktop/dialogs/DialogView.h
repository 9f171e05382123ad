#pragma once

#include <QWidget>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "base/Event.h"

class QFocusEvent;
class QKeyEvent;

namespace quorvane::forms {
class Control;
class Dialog;
class Frame;
class Menu;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

class MenuView;

/// What the views of dialogs have in common. The dialog sees each key before its controls do; the focus follows the
/// dialog's active control and tells it where the user went; a press on the surface beside the controls is the
/// dialog's own.
class DialogView : public QWidget {
 public:
  /// The dialog outlives this.
  DialogView(forms::Dialog& dialog, QWidget* parent);
  ~DialogView() override;

  /// The widget of a control; null for one that is not shown.
  QWidget* WidgetOf(const forms::Control& control) const;

 protected:
  /// Enters the widget that shows a control. The order of entering is that of Tab.
  template <class Widget>
  Widget* Enter(const std::shared_ptr<forms::Control>& control, Widget* widget) {
    EnterWidget(control, *widget);
    return widget;
  }
  void EnterMenu(forms::Menu& menu);
  /// A frame with its option buttons and check boxes one below the other.
  QWidget* EnterChoices(const std::shared_ptr<forms::Frame>& frame, QWidget* parent);

  bool eventFilter(QObject* watched, QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void EnterWidget(const std::shared_ptr<forms::Control>& control, QWidget& widget);
  void FollowFocus();
  bool TakeKey(const QKeyEvent& event);
  void NoteFocus(const QObject* watched, const QFocusEvent& event);
  std::shared_ptr<forms::Control> ControlOf(const QObject* widget) const;

  forms::Dialog& dialog_;
  std::vector<std::pair<std::shared_ptr<forms::Control>, QWidget*>> entered_;
  std::vector<std::unique_ptr<MenuView>> menus_;
  std::vector<Subscription> subscriptions_;
};

}  // namespace desktop
}  // namespace quorvane
