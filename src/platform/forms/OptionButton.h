#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <utility>

#include "platform/forms/CaptionedControl.h"

namespace quorvane::forms {

class OptionGroup;

/// What the user sees of one button of a group; the group holds the value and raises Click.
class OptionButton final : public CaptionedControl {
 public:
  /// Adds the button to the group, which outlives it. Error 457 for an index that is there.
  OptionButton(OptionGroup& group, std::int16_t index);

  std::int16_t Index() const { return index_; }
  bool Value() const;

  /// The user's click; a button that is disabled or invisible takes none.
  void Press();

 private:
  OptionGroup& group_;
  std::int16_t index_;
  Subscription onGroupChanged_;
};

/// The buttons 0 to N - 1 of an empty group.
template <std::size_t N>
std::array<std::shared_ptr<OptionButton>, N> MakeOptionButtons(OptionGroup& group) {
  return [&]<std::size_t... I>(std::index_sequence<I...>) {
    return std::array{std::make_shared<OptionButton>(group, static_cast<std::int16_t>(I))...};
  }
  (std::make_index_sequence<N>());
}

}  // namespace quorvane::forms
