#include "windows/controls/StatusView.h"

#include <utility>

#include "platform/forms/Label.h"
#include "windows/forms/TextSize.h"

namespace quorvane::windows {

namespace {

constexpr UINT_PTR kTimer = 1;

}  // namespace

StatusView::StatusView(DialogView& dialog, const std::shared_ptr<forms::Label>& label, HWND parent)
    : ControlView(dialog, label), label_(label) {
  Make(parent, L"STATIC", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS | SS_NOTIFY | WS_GROUP);
}

void StatusView::Show() {
  if (asked_) return;
  asked_ = ::SetTimer(Handle(), kTimer, USER_TIMER_MINIMUM, nullptr) != 0;
  if (!asked_) ShowCaption();
}

void StatusView::ShowCaption() {
  if (std::exchange(asked_, false)) ::KillTimer(Handle(), kTimer);
  if (Text() != label_->Caption()) SetText(label_->Caption());
}

SIZE StatusView::Measure() const {
  return {0, SizeOfLine(TheFont(), u"").cy};
}

LRESULT StatusView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_TIMER || wParam != kTimer) return ControlView::OnMessage(message, wParam, lParam);
  ShowCaption();
  return 0;
}

}  // namespace quorvane::windows
