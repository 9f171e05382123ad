#include "windows/results/DocumentWindow.h"

#include "windows/forms/Metrics.h"

namespace quorvane::windows {

namespace {

/// Keys that a document has a use for. With Ctrl or Alt they are commands of the host.
bool IsDocumentKey(WPARAM key) {
  if (::GetKeyState(VK_CONTROL) < 0 || ::GetKeyState(VK_MENU) < 0) return false;
  switch (key) {
    case VK_UP:
    case VK_DOWN:
    case VK_LEFT:
    case VK_RIGHT:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_HOME:
    case VK_END:
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_TAB:
    case VK_APPS:
      return true;
    default:
      return false;
  }
}

/// Paints a window and what lies in it with its left top at (x, y).
void Print(HWND window, HDC dc, int x, int y) {
  const int saved = ::SaveDC(dc);
  RECT outside{};
  ::GetWindowRect(window, &outside);
  ::OffsetViewportOrgEx(dc, x, y, nullptr);
  ::IntersectClipRect(dc, 0, 0, Width(outside), Height(outside));
  ::SendMessageW(window, WM_PRINT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT | PRF_NONCLIENT | PRF_ERASEBKGND);
  for (HWND child = ::GetWindow(::GetWindow(window, GW_CHILD), GW_HWNDLAST); child != nullptr;
       child = ::GetWindow(child, GW_HWNDPREV)) {
    if ((::GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE) == 0) continue;
    RECT place{};
    ::GetWindowRect(child, &place);
    Print(child, dc, place.left - outside.left, place.top - outside.top);
  }
  ::RestoreDC(dc, saved);
}

}  // namespace

/// Never shown; documents without a place lie in it.
class DocumentWindow::Parking final : public Window {
 public:
  Parking() {
    Making making;
    making.style = WS_POPUP;
    making.extendedStyle = WS_EX_TOOLWINDOW;
    Create(making);
  }
};

DocumentWindow::DocumentWindow(const std::function<std::unique_ptr<View>(HWND parent)>& make)
    : parking_(std::make_unique<Parking>()) {
  Making making;
  making.style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  making.extendedStyle = WS_EX_CONTROLPARENT;
  making.parent = parking_->Handle();
  Create(making);
  view_ = make(Handle());
  if (!view_) return;
  const SIZE size = view_->WantedSize();
  ::SetWindowPos(Handle(), nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

DocumentWindow::~DocumentWindow() {
  ending_ = true;
  view_.reset();
  Destroy();
}

void DocumentWindow::PutInto(HWND parent, const RECT& place, const RECT& clip) {
  if (Handle() == nullptr) return;
  if (::GetAncestor(Handle(), GA_PARENT) != parent) ::SetParent(Handle(), parent);
  MoveTo(place, clip);
  ::ShowWindow(Handle(), SW_SHOWNA);
  if (view_) ::ShowWindow(view_->Handle(), SW_SHOWNA);
}

void DocumentWindow::MoveTo(const RECT& place, const RECT& clip) {
  if (Handle() == nullptr) return;
  RECT seen{};
  ::IntersectRect(&seen, &place, &clip);
  HRGN region = nullptr;  // the window owns what it is given
  if (!::EqualRect(&seen, &place)) {
    ::OffsetRect(&seen, -place.left, -place.top);
    region = ::CreateRectRgnIndirect(&seen);
  }
  ::SetWindowRgn(Handle(), region, TRUE);
  ::MoveWindow(Handle(), place.left, place.top, Width(place), Height(place), TRUE);
}

void DocumentWindow::Park() {
  if (Handle() == nullptr) return;
  ::ShowWindow(Handle(), SW_HIDE);
  ::SetParent(Handle(), parking_->Handle());
}

bool DocumentWindow::HasFocus() const {
  const HWND focus = ::GetFocus();
  return focus != nullptr && (focus == Handle() || ::IsChild(Handle(), focus));
}

void DocumentWindow::TakeFocus() {
  if (view_ && !HasFocus()) view_->TakeFocus();
}

bool DocumentWindow::TakeKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || !::IsChild(Handle(), message.hwnd)) return false;
  if (view_ && view_->TakeKey(message)) return true;
  if (!IsDocumentKey(message.wParam)) return false;
  ::SendMessageW(message.hwnd, message.message, message.wParam, message.lParam);
  return true;
}

void DocumentWindow::Draw(HDC dc, const RECT& place) const {
  const int saved = ::SaveDC(dc);
  ::IntersectClipRect(dc, place.left, place.top, place.right, place.bottom);
  ::FillRect(dc, &place, ::GetSysColorBrush(COLOR_BTNFACE));
  if (view_ && view_->Handle() != nullptr) Print(view_->Handle(), dc, place.left, place.top);
  ::RestoreDC(dc, saved);
}

LRESULT DocumentWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      if (view_) ::MoveWindow(view_->Handle(), 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
      return 0;
    case WM_SETFOCUS:
      if (view_) view_->TakeFocus();
      return 0;
    case WM_MOUSEACTIVATE:
      Entered.Raise();
      return MA_ACTIVATE;
    case WM_NCDESTROY:
      if (!ending_) Gone.Raise();
      break;
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace quorvane::windows
