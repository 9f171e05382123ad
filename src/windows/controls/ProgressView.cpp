#include "windows/controls/ProgressView.h"

#include <commctrl.h>

#include "platform/forms/ProgressBar.h"
#include "windows/controls/DialogView.h"

namespace quorvane::windows {

namespace {

constexpr int kWidth = 170;
constexpr int kHeight = 12;

}  // namespace

ProgressView::ProgressView(DialogView& dialog, const std::shared_ptr<forms::ProgressBar>& bar, HWND parent)
    : ControlView(dialog, bar), bar_(bar) {
  Make(parent, PROGRESS_CLASSW, PBS_SMOOTH);
  ::SendMessageW(Handle(), PBM_SETRANGE32, static_cast<WPARAM>(bar->Min()), bar->Max());
}

void ProgressView::Show() {
  ::SendMessageW(Handle(), PBM_SETPOS, static_cast<WPARAM>(bar_->Value()), 0);
}

SIZE ProgressView::Measure() const {
  const DialogUnits& units = TheDialog().Units();
  return {units.Across(kWidth), units.Down(kHeight)};
}

}  // namespace quorvane::windows
