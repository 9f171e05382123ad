#pragma once

#include "windows/controls/ControlView.h"

namespace quorvane::forms {
class ProgressBar;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

class ProgressView final : public ControlView {
 public:
  ProgressView(DialogView& dialog, const std::shared_ptr<forms::ProgressBar>& bar, HWND parent);

 protected:
  void Show() override;
  SIZE Measure() const override;

 private:
  const std::shared_ptr<forms::ProgressBar> bar_;
};

}  // namespace quorvane::windows
