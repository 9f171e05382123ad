#pragma once

#include "windows/controls/CaptionView.h"

namespace quorvane::forms {
class Frame;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// A border with a caption around other controls.
class FrameView final : public CaptionView {
 public:
  FrameView(DialogView& dialog, const std::shared_ptr<forms::Frame>& frame, HWND parent);

  /// The frame with `inside` in it; this outlives that.
  std::unique_ptr<Placeable> Around(std::unique_ptr<Placeable> inside);

 protected:
  SIZE Measure() const override;
};

}  // namespace quorvane::windows
