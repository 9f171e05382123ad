#include "platform/forms/Forms.h"

#include <algorithm>

#include "base/Error.h"
#include "platform/forms/Form.h"

namespace quorvane::forms {

Forms& TheForms() {
  static Forms forms;
  return forms;
}

std::shared_ptr<Form> Forms::Item(std::int32_t index) const {
  if (index < 0 || index >= Count()) RaiseError(ErrorNumber::SubscriptOutOfRange);
  return open_[static_cast<std::size_t>(index)];
}

void Forms::Register(const std::u16string& name, Factory factory) {
  std::erase_if(factories_, [&](const auto& known) { return known.first == name; });
  factories_.emplace_back(name, std::move(factory));
}

std::shared_ptr<Form> Forms::Instance(std::u16string_view name) {
  const auto named = [&](const auto& entry) { return entry.first == name; };
  const auto known = std::ranges::find_if(instances_, named);
  if (known != instances_.end()) return known->second;
  const auto factory = std::ranges::find_if(factories_, named);
  if (factory == factories_.end()) {
    RaiseError(ErrorNumber::CannotCreateObject, u"Cannot create the form " + std::u16string(name));
  }
  const auto made = factory->second();
  Deref(made);
  instances_.emplace_back(name, made);
  return made;
}

void Forms::Forget() {
  factories_.clear();
  std::erase_if(instances_, [](const auto& entry) { return !entry.second->Loaded(); });
}

void Forms::Enter(const std::shared_ptr<Form>& form) {
  open_.push_back(form);
  Opened.Raise(*form);
}

void Forms::Leave(Form& form) {
  const auto isForm = [&](const std::shared_ptr<Form>& held) { return held.get() == &form; };
  std::erase_if(instances_, [&](const auto& entry) { return isForm(entry.second); });
  if (std::erase_if(open_, isForm) > 0) Closed.Raise(form);
}

}  // namespace quorvane::forms
