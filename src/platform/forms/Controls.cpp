#include "platform/forms/Controls.h"

#include <algorithm>

#include "base/Error.h"
#include "base/Text.h"
#include "platform/forms/Control.h"

namespace quorvane::forms {

void Controls::Register(const std::u16string& progId, Factory factory) {
  std::erase_if(factories_, [&](const auto& known) { return EqualsNoCaseAscii(known.first, progId); });
  factories_.emplace_back(progId, std::move(factory));
}

std::shared_ptr<Control> Controls::Add(std::u16string_view progId, const std::u16string& name) {
  CheckFree(name);
  const auto factory =
      std::ranges::find_if(factories_, [&](const auto& known) { return EqualsNoCaseAscii(known.first, progId); });
  if (factory == factories_.end()) {
    RaiseError(ErrorNumber::CannotCreateObject, u"Cannot create the control " + std::u16string(progId));
  }
  const auto control = factory->second();
  Deref(control).name_ = name;
  control->visible_ = false;
  controls_.push_back(control);
  Added.Raise(*control);
  return control;
}

void Controls::Place(const std::u16string& name, const std::shared_ptr<Control>& control) {
  CheckFree(name);
  Deref(control).name_ = name;
  controls_.push_back(control);
  Added.Raise(*control);
}

void Controls::Place(const std::u16string& name, std::int16_t index, const std::shared_ptr<Control>& control) {
  Place(name + u"(" + ToText(index) + u")", control);
}

void Controls::CheckFree(const std::u16string& name) const {
  if (Find(name) != controls_.end())
    RaiseError(ErrorNumber::NameTaken, u"There is already a control with the name " + name);
}

void Controls::Remove(std::u16string_view name) {
  const std::shared_ptr<Control> control = Item(name);
  controls_.erase(Find(name));
  Removed.Raise(*control);
}

std::shared_ptr<Control> Controls::Item(std::u16string_view name) const {
  const auto found = Find(name);
  if (found == controls_.end()) RaiseError(ErrorNumber::NoSuchControl, u"There is no control " + std::u16string(name));
  return *found;
}

std::vector<std::shared_ptr<Control>>::const_iterator Controls::Find(std::u16string_view name) const {
  return std::ranges::find_if(controls_, [&](const auto& control) { return EqualsNoCaseAscii(control->Name(), name); });
}

}  // namespace quorvane::forms
