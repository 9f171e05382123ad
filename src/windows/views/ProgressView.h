#pragma once

#include "windows/views/ControlView.h"

namespace quorvane {
class ProgressBar;
}

namespace quorvane::windows {

class ProgressView final : public ControlView {
 public:
  ProgressView(DialogView& dialog, const std::shared_ptr<ProgressBar>& bar, HWND parent);

 protected:
  void Show() override;
  SIZE Measure() const override;

 private:
  const std::shared_ptr<ProgressBar> bar_;
};

}  // namespace quorvane::windows
