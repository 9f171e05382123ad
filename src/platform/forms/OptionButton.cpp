#include "platform/forms/OptionButton.h"

#include "platform/forms/OptionGroup.h"

namespace quorvane::forms {

OptionButton::OptionButton(OptionGroup& group, std::int16_t index) : group_(group), index_(index) {
  group_.Add(index);
  onGroupChanged_ = group_.Changed.Subscribe([this] { Changed.Raise(); });
}

bool OptionButton::Value() const {
  return group_.Value(index_);
}

void OptionButton::Press() {
  if (Enabled() && Visible()) group_.SetValue(index_, true);
}

}  // namespace quorvane::forms
