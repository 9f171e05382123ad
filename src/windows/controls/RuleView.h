#pragma once

#include "windows/controls/ControlView.h"

namespace quorvane::forms {
class Line;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// A line across, as decoration.
class RuleView final : public ControlView {
 public:
  RuleView(DialogView& dialog, const std::shared_ptr<forms::Line>& line, HWND parent);

 protected:
  void Show() override {}
  SIZE Measure() const override { return {0, 2}; }
};

}  // namespace quorvane::windows
