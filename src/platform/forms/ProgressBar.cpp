#include "platform/forms/ProgressBar.h"

#include "base/Error.h"

namespace quorvane {

namespace {
constexpr std::int32_t kInvalidPropertyValue = 380;
}

void ProgressBar::SetValue(std::int32_t value) {
  if (value < min_ || value > max_) {
    throw Error(kInvalidPropertyValue, u"Invalid property value: the place of a progress bar");
  }
  if (value == value_) return;
  value_ = value;
  Changed.Raise();
}

}  // namespace quorvane
