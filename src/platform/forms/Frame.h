#pragma once

#include <memory>
#include <vector>

#include "platform/forms/CaptionedControl.h"

namespace quorvane::forms {

/// A captioned border around other controls. Made by make_shared alone.
class Frame final : public CaptionedControl, public std::enable_shared_from_this<Frame> {
 public:
  /// Puts the control into this frame, below those that are in it.
  void Add(const std::shared_ptr<Control>& control) {
    children_.push_back(control);
    control->SetContainer(shared_from_this());
  }
  /// From top to bottom.
  const std::vector<std::shared_ptr<Control>>& Children() const { return children_; }

 private:
  std::vector<std::shared_ptr<Control>> children_;
};

}  // namespace quorvane::forms
