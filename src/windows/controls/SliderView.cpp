#include "windows/controls/SliderView.h"

#include <commctrl.h>

#include "platform/forms/Slider.h"
#include "windows/controls/DialogView.h"

namespace quorvane::windows {

namespace {

constexpr int kWidth = 100;
constexpr int kHeight = 18;

}  // namespace

SliderView::SliderView(DialogView& dialog, const std::shared_ptr<forms::Slider>& slider, HWND parent)
    : ControlView(dialog, slider), slider_(slider) {
  Make(parent, TRACKBAR_CLASSW, TBS_HORZ | TBS_AUTOTICKS | WS_TABSTOP | WS_GROUP);
  ::SendMessageW(Handle(), TBM_SETRANGEMIN, FALSE, slider->Min());
  ::SendMessageW(Handle(), TBM_SETRANGEMAX, TRUE, slider->Max());
  ::SendMessageW(Handle(), TBM_SETPAGESIZE, 0, 1);
}

void SliderView::Show() {
  if (::SendMessageW(Handle(), TBM_GETPOS, 0, 0) != slider_->Value()) {
    ::SendMessageW(Handle(), TBM_SETPOS, TRUE, slider_->Value());
  }
  if (tip_ == slider_->Text()) return;
  tip_ = slider_->Text();
  TheDialog().Tips().Set(Handle(), tip_);
}

SIZE SliderView::Measure() const {
  const DialogUnits& units = TheDialog().Units();
  return {units.Across(kWidth), units.Down(kHeight)};
}

bool SliderView::OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
  if (message != WM_HSCROLL) return ControlView::OnReflected(message, wParam, lParam, result);
  slider_->Drag(static_cast<std::int32_t>(::SendMessageW(Handle(), TBM_GETPOS, 0, 0)));
  Follow();
  return true;
}

}  // namespace quorvane::windows
