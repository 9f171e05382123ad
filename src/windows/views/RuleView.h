#pragma once

#include "windows/views/ControlView.h"

namespace quorvane {
class Line;
}

namespace quorvane::windows {

/// A line across, as decoration.
class RuleView final : public ControlView {
 public:
  RuleView(DialogView& dialog, const std::shared_ptr<Line>& line, HWND parent);

 protected:
  void Show() override {}
  SIZE Measure() const override { return {0, 2}; }
};

}  // namespace quorvane::windows
