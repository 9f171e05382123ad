#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "base/Event.h"

namespace quorvane {

class CaptionedControl;
class CheckBox;
class CommandButton;
class Control;
class Frame;
class Label;
class OptionButton;

namespace desktop {

/// Whether a widget can be used and seen, as its model says.
void FollowControl(QWidget& widget, const Control& control);
/// Whether that is going on now: the toolkit then moves the focus off a widget that can no longer have it, and no user
/// has done so.
bool IsFollowingControl();

// Widgets for the plain controls. Each shows its model, which outlives it, and hands the user's input to it; what the
// model makes of that is shown again, whatever the toolkit did by itself.

class LabelView final : public QLabel {
 public:
  LabelView(Label& label, QWidget* parent);

 private:
  Subscription changed_;
};

class FrameView final : public QGroupBox {
 public:
  FrameView(Frame& frame, QWidget* parent);

 private:
  Subscription changed_;
};

class ButtonView final : public QPushButton {
 public:
  ButtonView(CommandButton& button, QWidget* parent);

 protected:
  bool event(QEvent* event) override;

 private:
  Subscription changed_;
};

class OptionView final : public QRadioButton {
 public:
  OptionView(OptionButton& option, QWidget* parent);

 protected:
  bool event(QEvent* event) override;

 private:
  void Follow();

  OptionButton& option_;
  Subscription changed_;
};

class CheckView final : public QCheckBox {
 public:
  CheckView(CheckBox& box, QWidget* parent);

 protected:
  bool event(QEvent* event) override;

 private:
  void Follow();

  CheckBox& box_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
