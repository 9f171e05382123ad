#pragma once

#include "windows/views/ControlView.h"

namespace quorvane {
class PictureBox;
}

namespace quorvane::windows {

/// The program's icon.
class PictureView final : public ControlView {
 public:
  PictureView(DialogView& dialog, const std::shared_ptr<PictureBox>& box, HWND parent);
  ~PictureView() override;

 protected:
  void Show() override {}
  SIZE Measure() const override;

 private:
  HICON icon_;  ///< nothing when it cannot be had
};

}  // namespace quorvane::windows
