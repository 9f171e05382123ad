#include "desktop/views/ControlViews.h"

#include <QShortcutEvent>

#include "desktop/QtText.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"

namespace quorvane::desktop {

namespace {

/// A widget with a text of its own.
template <class Widget>
void FollowCaption(Widget& widget, const CaptionedControl& control) {
  widget.setToolTip(ToQString(control.ToolTipText()));
  FollowControl(widget, control);
}

/// An access key clicks at once, where the toolkit would show the button pressed for a while first: the next key may
/// depend on it.
bool ClickByKey(QAbstractButton& button, const QEvent& event) {
  if (event.type() != QEvent::Shortcut || static_cast<const QShortcutEvent&>(event).isAmbiguous()) return false;
  button.setFocus(Qt::ShortcutFocusReason);
  button.click();
  return true;
}

}  // namespace

namespace {

int following = 0;

}  // namespace

bool IsFollowingControl() {
  return following > 0;
}

void FollowControl(QWidget& widget, const Control& control) {
  ++following;
  const QWidget* parent = widget.parentWidget();
  if (parent == nullptr || widget.isEnabledTo(parent) != control.Enabled()) widget.setEnabled(control.Enabled());
  if (widget.isHidden() == control.Visible()) widget.setVisible(control.Visible());
  --following;
}

LabelView::LabelView(Label& label, QWidget* parent) : QLabel(parent) {
  const auto follow = [this, &label] {
    setText(ToQString(label.Caption()));
    FollowCaption(*this, label);
  };
  changed_ = label.Changed.Subscribe(follow);
  follow();
}

FrameView::FrameView(Frame& frame, QWidget* parent) : QGroupBox(parent) {
  const auto follow = [this, &frame] {
    setTitle(ToQString(frame.Caption()));
    FollowCaption(*this, frame);
  };
  changed_ = frame.Changed.Subscribe(follow);
  follow();
}

ButtonView::ButtonView(CommandButton& button, QWidget* parent) : QPushButton(parent) {
  const auto follow = [this, &button] {
    setText(ToQString(button.Caption()));
    FollowCaption(*this, button);
  };
  changed_ = button.Changed.Subscribe(follow);
  connect(this, &QPushButton::clicked, this, [&button] { button.Press(); });
  follow();
}

bool ButtonView::event(QEvent* event) {
  return ClickByKey(*this, *event) || QPushButton::event(event);
}

OptionView::OptionView(OptionButton& option, QWidget* parent) : QRadioButton(parent), option_(option) {
  changed_ = option.Changed.Subscribe([this] { Follow(); });
  connect(this, &QRadioButton::clicked, this, [this] {
    option_.Press();
    Follow();
  });
  Follow();
}

bool OptionView::event(QEvent* event) {
  return ClickByKey(*this, *event) || QRadioButton::event(event);
}

void OptionView::Follow() {
  setText(ToQString(option_.Caption()));
  setChecked(option_.Value());
  setFocusPolicy(option_.Value() ? Qt::StrongFocus : Qt::ClickFocus);  // Tab comes to the set one, arrows lead on
  FollowCaption(*this, option_);
}

CheckView::CheckView(CheckBox& box, QWidget* parent) : QCheckBox(parent), box_(box) {
  changed_ = box.Changed.Subscribe([this] { Follow(); });
  connect(this, &QCheckBox::clicked, this, [this] {
    box_.Press();
    Follow();
  });
  Follow();
}

bool CheckView::event(QEvent* event) {
  return ClickByKey(*this, *event) || QCheckBox::event(event);
}

void CheckView::Follow() {
  constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
  setText(ToQString(box_.Caption()));
  setCheckState(kStates[box_.Value()]);
  FollowCaption(*this, box_);
}

}  // namespace quorvane::desktop
