#include "platform/forms/Menu.h"

namespace quorvane::forms {

Menu& Menu::Add(Above above) {
  if (above == Above::Line) {
    items_.push_back(std::make_shared<Menu>());
    items_.back()->separator_ = true;
  }
  items_.push_back(std::make_shared<Menu>());
  return *items_.back();
}

void Menu::SetCaption(const std::u16string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  Changed.Raise();
}

void Menu::SetChecked(bool checked) {
  if (checked == checked_) return;
  checked_ = checked;
  Changed.Raise();
}

void Menu::Press() {
  if (!separator_ && Enabled() && Visible()) Click.Raise();
}

void Menu::PopUp() {
  Click.Raise();
  Popped.Raise();
}

}  // namespace quorvane::forms
