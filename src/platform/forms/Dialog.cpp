#include "platform/forms/Dialog.h"

#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/Menu.h"
#include "platform/forms/OptionButton.h"

namespace quorvane {

namespace {

constexpr std::int16_t kEnter = 13;

bool IsOpen(const Control& control) {
  return control.Enabled() && control.Visible();
}

bool TakesFocus(const Control& control) {
  return dynamic_cast<const Label*>(&control) == nullptr && dynamic_cast<const Frame*>(&control) == nullptr &&
         dynamic_cast<const Menu*>(&control) == nullptr;
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

void Dialog::Move(std::int32_t left, std::int32_t top) {
  left_ = left;
  top_ = top;
  Changed.Raise();
}

void Dialog::SetSize(std::int32_t width, std::int32_t height) {
  width_ = width;
  height_ = height;
  Changed.Raise();
}

void Dialog::SetFocus(const std::shared_ptr<Control>& control) {
  if (!Visible() || !IsOpen(Deref(control)) || !TakesFocus(*control)) {
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
  return keyCode == kEnter && PressEnter();
}

bool Dialog::PressEnter() {
  auto button = std::dynamic_pointer_cast<CommandButton>(ActiveControl());
  if (!button || !IsOpen(*button)) button = defaultButton_;
  if (!button || !IsOpen(*button)) return false;
  button->Press();
  return true;
}

bool Dialog::PressAccessKey(char16_t letter) {
  const auto self = shared_from_this();
  const auto& all = controls_.All();
  const auto focus = ActiveControl();
  std::size_t start = 0;
  while (start + 1 < all.size() && all[start] != focus) ++start;  // without a focus: behind the last, so the first
  for (std::size_t i = 1; i <= all.size(); ++i) {
    const std::size_t place = (start + i) % all.size();
    const Control& control = *all[place];
    if (IsOpen(control) && AccessKey(CaptionOf(control)) == ToLowerAscii(letter)) return Act(place);
  }
  return false;
}

bool Dialog::Act(std::size_t place) {
  const auto& all = controls_.All();
  while (place < all.size() && !(TakesFocus(*all[place]) && IsOpen(*all[place]))) ++place;
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

}  // namespace quorvane
