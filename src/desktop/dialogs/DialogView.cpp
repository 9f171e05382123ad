#include "desktop/dialogs/DialogView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "desktop/controls/CheckView.h"
#include "desktop/controls/ControlFollow.h"
#include "desktop/controls/FrameView.h"
#include "desktop/controls/MenuView.h"
#include "desktop/controls/OptionView.h"
#include "desktop/platform/QtKeys.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/Control.h"
#include "platform/forms/Dialog.h"
#include "platform/forms/Frame.h"
#include "platform/forms/OptionButton.h"

namespace quorvane::desktop {

namespace {

constexpr int kChoiceSpacing = 4;

}  // namespace

DialogView::DialogView(forms::Dialog& dialog, QWidget* parent) : QWidget(parent), dialog_(dialog) {
  setFocusPolicy(Qt::NoFocus);
  subscriptions_.push_back(dialog_.Changed.Subscribe([this] { FollowFocus(); }));
  if (parent != nullptr) parent->installEventFilter(this);
}

DialogView::~DialogView() = default;

void DialogView::EnterWidget(const std::shared_ptr<forms::Control>& control, QWidget& widget) {
  entered_.emplace_back(control, &widget);
  widget.installEventFilter(this);
  // A control that can be used again may be the one that has the focus.
  subscriptions_.push_back(control->Changed.Subscribe([this] { FollowFocus(); }));
}

void DialogView::EnterMenu(forms::Menu& menu) {
  menus_.push_back(std::make_unique<MenuView>(menu, *this));
}

QWidget* DialogView::EnterChoices(const std::shared_ptr<forms::Frame>& frame, QWidget* parent) {
  auto* box = Enter(frame, new FrameView(*frame, parent));
  auto* layout = new QVBoxLayout(box);
  layout->setSpacing(kChoiceSpacing);
  for (const auto& child : frame->Children()) {
    if (const auto option = std::dynamic_pointer_cast<forms::OptionButton>(child)) {
      layout->addWidget(Enter(child, new OptionView(*option, box)));
    } else if (const auto check = std::dynamic_pointer_cast<forms::CheckBox>(child)) {
      layout->addWidget(Enter(child, new CheckView(*check, box)));
    }
  }
  layout->addStretch();
  return box;
}

QWidget* DialogView::WidgetOf(const forms::Control& control) const {
  for (const auto& [shown, widget] : entered_) {
    if (shown.get() == &control) return widget;
  }
  return nullptr;
}

std::shared_ptr<forms::Control> DialogView::ControlOf(const QObject* widget) const {
  for (const QObject* at = widget; at != nullptr && at != this; at = at->parent()) {
    for (const auto& [control, shown] : entered_) {
      if (shown == at) return control;
    }
  }
  return nullptr;
}

/// While controls are disabled the toolkit moves the focus about; the dialog's active control stays what it is, and
/// gets the focus back. When that cannot have it any more, focus begins anew.
void DialogView::FollowFocus() {
  const auto active = dialog_.ActiveControl();
  if (!active || !window()->isVisible()) return;
  const auto usable = [](const QWidget* widget) {
    return widget != nullptr && widget->isEnabled() && widget->isVisible();
  };
  const QWidget* now = window()->focusWidget();
  QWidget* widget = WidgetOf(*active);
  if (!usable(widget)) widget = focusProxy();
  if (!usable(widget) || now == widget || (now != nullptr && widget->isAncestorOf(now))) return;
  widget->setFocus(Qt::OtherFocusReason);
}

bool DialogView::TakeKey(const QKeyEvent& event) {
  const std::int32_t code = VirtualKeyOf(event);
  if (code == 0) return false;
  return dialog_.PressKey(static_cast<std::int16_t>(code), static_cast<std::int16_t>(ShiftStateOf(event.modifiers())));
}

bool DialogView::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: {
      // What a control let through comes to its frames and the window again.
      const QWidget* focus = window()->focusWidget();
      const auto focused = ControlOf(focus);
      const auto* widget = qobject_cast<QWidget*>(watched);
      if (focused && ControlOf(watched) != focused && widget->isAncestorOf(focus)) return false;
      return TakeKey(*static_cast<QKeyEvent*>(event));
    }
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      NoteFocus(watched, *static_cast<QFocusEvent*>(event));
      return false;
    default:
      return QWidget::eventFilter(watched, event);
  }
}

/// Some parts of a widget, such as its bar of tabs, are not watched: a control that the focus leaves for one of those
/// is not active any more, and Enter must not press it.
void DialogView::NoteFocus(const QObject* watched, const QFocusEvent& event) {
  const Qt::FocusReason reason = event.reason();
  const bool byUser = reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
                      reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
  const auto control = ControlOf(watched);
  if (!byUser || IsFollowingControl() || !control || !control->Enabled()) return;
  if (event.gotFocus()) {
    dialog_.TakeFocus(control);
  } else if (control == dialog_.ActiveControl()) {
    dialog_.TakeFocus(nullptr);
  }
}

void DialogView::mousePressEvent(QMouseEvent* event) {
  const std::int16_t button = MouseButtonOf(event->button());
  if (button == 0 || childAt(event->position().toPoint()) != nullptr) return;
  dialog_.PressMouse(button, static_cast<std::int16_t>(ShiftStateOf(event->modifiers())),
                     static_cast<float>(event->position().x()), static_cast<float>(event->position().y()));
}

void DialogView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && childAt(event->position().toPoint()) == nullptr) dialog_.DoubleClick();
}

}  // namespace quorvane::desktop
