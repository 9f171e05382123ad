#pragma once

#include "windows/controls/ControlView.h"

namespace quorvane::forms {
class Slider;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// A thumb on a scale, with a tip that tells of its place.
class SliderView final : public ControlView {
 public:
  SliderView(DialogView& dialog, const std::shared_ptr<forms::Slider>& slider, HWND parent);

 protected:
  void Show() override;
  SIZE Measure() const override;
  bool OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  const std::shared_ptr<forms::Slider> slider_;
  std::u16string tip_;
};

}  // namespace quorvane::windows
