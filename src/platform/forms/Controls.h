#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Event.h"

namespace quorvane::forms {

class Control;

/// The controls of one form or document, in the order of adding. Names and ProgIDs are compared without regard to the
/// case of ASCII letters.
class Controls {
 public:
  using Factory = std::function<std::shared_ptr<Control>()>;

  /// How controls of a ProgID are made here, such as "VB.Label". A second factory of one ProgID takes the place of the
  /// first.
  void Register(const std::u16string& progId, Factory factory);

  /// Makes a control, not visible, and keeps it under `name`. Error 429 for a ProgID without a factory, 727 for a name
  /// that is taken.
  std::shared_ptr<Control> Add(std::u16string_view progId, const std::u16string& name);
  /// Takes in a control that a form has by its design, as it is. Error 91 for nothing, 727 for a name that is taken.
  void Place(const std::u16string& name, const std::shared_ptr<Control>& control);
  /// Likewise one of several of one name: under "name(index)".
  void Place(const std::u16string& name, std::int16_t index, const std::shared_ptr<Control>& control);
  /// The control stays whole for whoever holds it. Error 730 when there is none of that name.
  void Remove(std::u16string_view name);
  /// Error 730 when there is none of that name.
  std::shared_ptr<Control> Item(std::u16string_view name) const;
  std::int32_t Count() const { return static_cast<std::int32_t>(controls_.size()); }
  const std::vector<std::shared_ptr<Control>>& All() const { return controls_; }

  Event<Control&> Added;
  Event<Control&> Removed;

 private:
  std::vector<std::shared_ptr<Control>>::const_iterator Find(std::u16string_view name) const;
  void CheckFree(const std::u16string& name) const;

  std::vector<std::pair<std::u16string, Factory>> factories_;
  std::vector<std::shared_ptr<Control>> controls_;
};

}  // namespace quorvane::forms
