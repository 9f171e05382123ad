#include "platform/forms/ProgressBar.h"

#include "base/Error.h"

namespace quorvane::forms {

void ProgressBar::SetValue(std::int32_t value) {
  if (value < min_ || value > max_) {
    RaiseError(ErrorNumber::InvalidPropertyValue, u"Invalid property value: the place of a progress bar");
  }
  if (value == value_) return;
  value_ = value;
  Changed.Raise();
}

}  // namespace quorvane::forms
