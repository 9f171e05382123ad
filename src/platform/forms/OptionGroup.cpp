#include "platform/forms/OptionGroup.h"

#include "base/Error.h"

namespace quorvane::forms {

void OptionGroup::Add(std::int16_t index) {
  if (!buttons_.emplace(index, false).second) RaiseError(ErrorNumber::DuplicateKey);
}

bool OptionGroup::Value(std::int16_t index) const {
  const auto found = buttons_.find(index);
  if (found == buttons_.end()) RaiseError(ErrorNumber::SubscriptOutOfRange);
  return found->second;
}

void OptionGroup::SetValue(std::int16_t index, bool value) {
  if (Value(index) == value) return;
  if (value) {
    for (auto& button : buttons_) button.second = false;
  }
  buttons_[index] = value;
  Changed.Raise();
  if (value) Click.Raise(index);
}

}  // namespace quorvane::forms
