#include "windows/controls/OptionView.h"

#include "platform/forms/OptionButton.h"
#include "windows/controls/CheckView.h"
#include "windows/controls/DialogView.h"

namespace quorvane::windows {

OptionView::OptionView(DialogView& dialog, const std::shared_ptr<forms::OptionButton>& option, HWND parent, bool first)
    : CaptionView(dialog, option), option_(option) {
  Make(parent, L"BUTTON", BS_AUTORADIOBUTTON | (first ? WS_GROUP | WS_TABSTOP : 0U));
}

void OptionView::Show() {
  CaptionView::Show();
  const WPARAM state = option_->Value() ? BST_CHECKED : BST_UNCHECKED;
  if (::SendMessageW(Handle(), BM_GETCHECK, 0, 0) != static_cast<LRESULT>(state)) {
    ::SendMessageW(Handle(), BM_SETCHECK, state, 0);
  }
  const LONG style = ::GetWindowLongW(Handle(), GWL_STYLE) & ~WS_TABSTOP;
  ::SetWindowLongW(Handle(), GWL_STYLE, style | (option_->Value() ? WS_TABSTOP : 0));
}

SIZE OptionView::Measure() const {
  return SizeOfChoice(TheDialog(), CaptionSize());
}

void OptionView::OnCommand(WORD code) {
  if (code != BN_CLICKED) return;
  option_->Press();
  Follow();
}

}  // namespace quorvane::windows
