#pragma once

#include <cstdint>
#include <map>

#include "base/Event.h"

namespace quorvane::forms {

/// An indexed group of option buttons in one container: at most one of them is set.
class OptionGroup {
 public:
  /// Adds the button of that index, not set. Raises error 457 for an index that is there.
  void Add(std::int16_t index);

  /// Raises error 9 for an index that is not there, as SetValue does.
  bool Value(std::int16_t index) const;
  /// Setting a button clears the others and raises Click for it, unless it was set already. Clearing raises no Click.
  void SetValue(std::int16_t index, bool value);

  /// Ascending by index.
  const std::map<std::int16_t, bool>& Buttons() const { return buttons_; }

  Event<std::int16_t> Click;
  Event<> Changed;  ///< which button is set; before Click

 private:
  std::map<std::int16_t, bool> buttons_;  ///< invariant: at most one value is true
};

}  // namespace quorvane::forms
