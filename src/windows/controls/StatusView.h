#pragma once

#include "windows/controls/ControlView.h"

namespace quorvane::forms {
class Label;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// A line that changes thousands of times a second while something runs: it shows the last state of each burst, takes
/// what room there is, and cuts what does not fit. Its text has no access keys.
class StatusView final : public ControlView {
 public:
  StatusView(DialogView& dialog, const std::shared_ptr<forms::Label>& label, HWND parent);

 protected:
  void Show() override;
  SIZE Measure() const override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void ShowCaption();

  const std::shared_ptr<forms::Label> label_;
  bool asked_ = false;  ///< a timer runs that will show the caption
};

}  // namespace quorvane::windows
