#include "platform/forms/Dialog.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/KeyCode.h"
#include "base/Text.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/Line.h"
#include "platform/forms/Menu.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/ProgressBar.h"
#include "platform/forms/Screen.h"

namespace quorvane::forms {

namespace {

template <class... Kinds>
bool IsOneOf(const Control& control) {
  return ((dynamic_cast<const Kinds*>(&control) != nullptr) || ...);
}

bool TakesFocus(const Control& control) {
  return !IsOneOf<Label, Frame, Menu, Line, PictureBox, ProgressBar>(control);
}

/// Empty for a control without one; the entries of a menu have their keys to themselves.
std::u16string CaptionOf(const Control& control) {
  if (const auto* captioned = dynamic_cast<const CaptionedControl*>(&control)) return captioned->Caption();
  if (const auto* label = dynamic_cast<const Label*>(&control)) return label->Caption();
  return {};
}

}  // namespace

Dialog::~Dialog() = default;

void Dialog::Form_KeyDown(std::int16_t, std::int16_t) {}

void Dialog::Form_MouseDown(std::int16_t, std::int16_t, float, float) {}

void Dialog::SetDefaultButton(std::shared_ptr<CommandButton> button) {
  defaultButton_ = std::move(button);
}

void Dialog::SetCancelButton(std::shared_ptr<CommandButton> button) {
  cancelButton_ = std::move(button);
}

void Dialog::Move(std::int32_t left, std::int32_t top) {
  left_ = left;
  top_ = top;
  Changed.Raise();
}

void Dialog::SetSize(std::int32_t width, std::int32_t height) {
  width = std::max(width, 0);
  height = std::max(height, 0);
  if (width == width_ && height == height_) return;
  width_ = width;
  height_ = height;
  if (start_ == FormStart::CenterScreen && !Visible()) {
    left_ = TheScreen().Left + (TheScreen().Width - width) / 2;
    top_ = TheScreen().Top + (TheScreen().Height - height) / 2;
  }
  Form_Resize();
  Changed.Raise();
}

void Dialog::SetFocus(const std::shared_ptr<Control>& control) {
  if (!Visible() || !Deref(control).IsOpen() || !TakesFocus(*control)) {
    RaiseError(ErrorNumber::InvalidProcedureCall, u"The control cannot have the focus: " + control->Name());
  }
  active_ = control;
  Changed.Raise();
}

void Dialog::TakeFocus(const std::shared_ptr<Control>& control) {
  active_ = control;
}

bool Dialog::PressKey(std::int16_t keyCode, std::int16_t shift) {
  const auto self = shared_from_this();
  Form_KeyDown(keyCode, shift);
  if (!Visible()) return true;
  if (keyCode == kKeyEscape) return PressEsc();
  return keyCode == kKeyEnter && PressEnter();
}

bool Dialog::PressEsc() {
  if (!cancelButton_ || !cancelButton_->IsOpen()) return false;
  cancelButton_->Press();
  return true;
}

bool Dialog::PressEnter() {
  auto button = std::dynamic_pointer_cast<CommandButton>(ActiveControl());
  if (!button || !button->IsOpen()) button = defaultButton_;
  if (!button || !button->IsOpen()) return false;
  button->Press();
  return true;
}

bool Dialog::PressAccessKey(char16_t letter) {
  const auto self = shared_from_this();
  const auto& all = controls_.All();
  const auto focus = ActiveControl();
  std::size_t start = 0;
  while (start + 1 < all.size() && all[start] != focus) ++start;  // without a focus: after the last, so the first
  for (std::size_t i = 1; i <= all.size(); ++i) {
    const std::size_t place = (start + i) % all.size();
    const Control& control = *all[place];
    if (control.IsOpen() && AccessKey(CaptionOf(control)) == ToLowerAscii(letter)) return Act(place);
  }
  return false;
}

bool Dialog::Act(std::size_t place) {
  const auto& all = controls_.All();
  while (place < all.size() && !(TakesFocus(*all[place]) && all[place]->IsOpen())) ++place;
  if (place == all.size()) return false;
  const std::shared_ptr<Control> control = all[place];
  SetFocus(control);
  if (auto* button = dynamic_cast<CommandButton*>(control.get())) button->Press();
  if (auto* box = dynamic_cast<CheckBox*>(control.get())) box->Press();
  if (auto* option = dynamic_cast<OptionButton*>(control.get())) option->Press();
  return true;
}

char16_t AccessKey(std::u16string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    ++i;
    if (caption[i] != u'&') return ToLowerAscii(caption[i]);
  }
  return 0;
}

}  // namespace quorvane::forms
