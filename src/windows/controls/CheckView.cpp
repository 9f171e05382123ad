#include "windows/controls/CheckView.h"

#include <algorithm>

#include "platform/forms/CheckBox.h"
#include "windows/controls/DialogView.h"
#include "windows/forms/Metrics.h"

namespace quorvane::windows {

namespace {

constexpr int kMark = 13;  // pixels at 96 an inch
constexpr int kHeight = 10;
constexpr int kRoomBeside = 5;

}  // namespace

SIZE SizeOfChoice(const DialogView& dialog, SIZE caption) {
  const DialogUnits& units = dialog.Units();
  return {caption.cx + Scaled(kMark) + units.Across(kRoomBeside), std::max<LONG>(caption.cy, units.Down(kHeight))};
}

CheckView::CheckView(DialogView& dialog, const std::shared_ptr<forms::CheckBox>& box, HWND parent)
    : CaptionView(dialog, box), box_(box) {
  Make(parent, L"BUTTON", BS_3STATE | WS_TABSTOP | WS_GROUP);
}

void CheckView::Show() {
  CaptionView::Show();
  const auto state = static_cast<WPARAM>(box_->Value());
  if (::SendMessageW(Handle(), BM_GETCHECK, 0, 0) != static_cast<LRESULT>(state)) {
    ::SendMessageW(Handle(), BM_SETCHECK, state, 0);
  }
}

SIZE CheckView::Measure() const {
  return SizeOfChoice(TheDialog(), CaptionSize());
}

void CheckView::OnCommand(WORD code) {
  if (code == BN_CLICKED) box_->Press();
}

}  // namespace quorvane::windows
