#include "platform/forms/CheckBox.h"

#include "base/Error.h"

namespace quorvane::forms {

void CheckBox::SetValue(std::int16_t value) {
  if (value < 0 || value > 2) {
    RaiseError(ErrorNumber::InvalidPropertyValue, u"Invalid property value: the state of a check box");
  }
  if (value == value_) return;
  value_ = value;
  Changed.Raise();
  Click.Raise();
}

void CheckBox::Press() {
  if (Enabled() && Visible()) SetValue(value_ == 0 ? 1 : 0);
}

}  // namespace quorvane::forms
