#include "windows/controls/ControlView.h"

#include <utility>

#include "platform/forms/Control.h"
#include "windows/controls/DialogView.h"
#include "windows/controls/ThemeScope.h"
#include "windows/forms/Fonts.h"
#include "windows/forms/Handles.h"
#include "windows/forms/Metrics.h"

namespace quorvane::windows {

ControlView::ControlView(DialogView& dialog, std::shared_ptr<forms::Control> control)
    : dialog_(dialog), control_(std::move(control)) {}

ControlView::~ControlView() {
  control_->SetHwnd(0);
}

void ControlView::Make(HWND parent, const wchar_t* className, DWORD style, DWORD extendedStyle) {
  const ThemeScope themed;
  Making making;
  making.control = className;
  making.style = WS_CHILD | style | (control_->Visible() ? WS_VISIBLE : 0U);
  making.extendedStyle = extendedStyle;
  making.parent = parent;
  making.id = dialog_.NextId();
  Create(making);
  SetFont(TheFont());
  control_->SetHwnd(HandleOf(Handle()));
}

HFONT ControlView::TheFont() const {
  return DialogFont();
}

void ControlView::SetFont(HFONT font) {
  ::SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void ControlView::Start() {
  changed_ = control_->Changed.Subscribe([this] { Follow(); });
  Follow();
}

void ControlView::Follow() {
  if (Handle() == nullptr) return;
  ++following_;
  Show();
  FollowState();
  --following_;
  const SIZE least = Measure();
  if (least.cx == least_.cx && least.cy == least_.cy) return;
  least_ = least;
  dialog_.NoteSizes();
}

/// A control that can no longer be used hands the focus over before, since the window system would drop it; one that
/// can be used again may be the one that has it.
void ControlView::FollowState() {
  const bool enabled = ::IsWindowEnabled(Handle()) != FALSE;
  const bool visible = (::GetWindowLongW(Handle(), GWL_STYLE) & WS_VISIBLE) != 0;
  if (enabled == control_->Enabled() && visible == control_->Visible()) return;
  if (HasFocus() && !(control_->Enabled() && control_->Visible())) dialog_.HoldFocus();
  if (enabled != control_->Enabled()) ::EnableWindow(Handle(), control_->Enabled());
  if (visible != control_->Visible()) ::ShowWindow(Handle(), control_->Visible() ? SW_SHOWNA : SW_HIDE);
  dialog_.FollowFocus();
}

void ControlView::Place(const RECT& room) {
  RECT now{};
  ::GetWindowRect(Handle(), &now);
  ::MapWindowPoints(nullptr, ::GetParent(Handle()), reinterpret_cast<POINT*>(&now), 2);
  if (::EqualRect(&now, &room)) return;
  ::MoveWindow(Handle(), room.left, room.top, Width(room), windows::Height(room), FALSE);
  // The inside of a frame is nobody's to erase but its parent's, and its old border stands there.
  for (const RECT* part : {&std::as_const(now), &room}) {
    ::RedrawWindow(::GetParent(Handle()), part, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  }
}

bool ControlView::IsUsable() const {
  return Handle() != nullptr && control_->IsOpen() && ::IsWindowEnabled(Handle()) && ::IsWindowVisible(Handle());
}

bool ControlView::HasFocus() const {
  const HWND focus = ::GetFocus();
  return focus != nullptr && (focus == Handle() || ::IsChild(Handle(), focus));
}

LRESULT ControlView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = Default(message, wParam, lParam);
  if (message == WM_SETFOCUS) dialog_.NoteFocus(this);
  if (message == WM_KILLFOCUS) dialog_.NoteLeft(reinterpret_cast<HWND>(wParam));
  return result;
}

bool ControlView::OnReflected(UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
  if (message == WM_COMMAND) {
    if (!Following()) OnCommand(HIWORD(wParam));
    return true;
  }
  if (message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN) {
    return dialog_.ColorOf(Handle(), reinterpret_cast<HDC>(wParam), result);
  }
  return false;
}

}  // namespace quorvane::windows
