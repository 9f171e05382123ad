#pragma once

#include "windows/controls/ControlView.h"

namespace quorvane::forms {
class PictureBox;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// The program's icon.
class PictureView final : public ControlView {
 public:
  PictureView(DialogView& dialog, const std::shared_ptr<forms::PictureBox>& box, HWND parent);
  ~PictureView() override;

 protected:
  void Show() override {}
  SIZE Measure() const override;

 private:
  HICON icon_;  ///< nothing when it cannot be had
};

}  // namespace quorvane::windows
