#include "windows/controls/ButtonView.h"

#include <algorithm>

#include "platform/forms/CommandButton.h"
#include "windows/controls/DialogView.h"

namespace quorvane::windows {

namespace {

constexpr int kWidth = 54;
constexpr int kHeight = 14;
constexpr int kRoomBeside = 6;

}  // namespace

ButtonView::ButtonView(DialogView& dialog, const std::shared_ptr<forms::CommandButton>& button, HWND parent)
    : CaptionView(dialog, button), button_(button) {
  Make(parent, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP);
}

void ButtonView::ShowDefault(bool isDefault) {
  if (isDefault == isDefault_) return;
  isDefault_ = isDefault;
  ::SendMessageW(Handle(), BM_SETSTYLE, isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

SIZE ButtonView::Measure() const {
  const DialogUnits& units = TheDialog().Units();
  const SIZE words = CaptionSize();
  return {std::max<LONG>(words.cx + 2 * units.Across(kRoomBeside), units.Across(kWidth)),
          std::max<LONG>(words.cy + units.Down(4), units.Down(kHeight))};
}

void ButtonView::OnCommand(WORD code) {
  const auto button = button_;
  if (code == BN_CLICKED) button->Press();
}

}  // namespace quorvane::windows
