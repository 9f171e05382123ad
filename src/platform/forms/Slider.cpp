#include "platform/forms/Slider.h"

#include <algorithm>

namespace quorvane::forms {

void Slider::SetValue(std::int32_t value) {
  value = std::clamp(value, min_, max_);
  if (value == value_) return;
  value_ = value;
  Changed.Raise();
  Change.Raise();
}

void Slider::SetText(const std::u16string& text) {
  if (text == text_) return;
  text_ = text;
  Changed.Raise();
}

void Slider::Drag(std::int32_t value) {
  if (Enabled() && Visible()) SetValue(value);
}

}  // namespace quorvane::forms
