#include "windows/forms/FormWindow.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/FlagScope.h"
#include "platform/forms/Dialog.h"
#include "windows/forms/Handles.h"
#include "windows/forms/Metrics.h"
#include "windows/forms/ViewFactory.h"

namespace quorvane::windows {

namespace {

constexpr UINT kFocusMoved = WM_APP + 1;

std::vector<HWND>& Modals() {
  static std::vector<HWND> modals;
  return modals;
}

DWORD StyleOf(const forms::Dialog* dialog) {
  if (dialog != nullptr && dialog->Border() == forms::FormBorder::None) return WS_POPUP | WS_BORDER | WS_CLIPCHILDREN;
  return WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
}

DWORD ExtendedStyleOf(const forms::Dialog* dialog) {
  if (dialog == nullptr || dialog->Border() == forms::FormBorder::FixedDialog)
    return WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
  constexpr DWORD kNoActivate = 0x08000000;  // WS_EX_NOACTIVATE
  return WS_EX_TOOLWINDOW | WS_EX_CONTROLPARENT | (dialog->Border() == forms::FormBorder::None ? kNoActivate : 0);
}

/// A list that hangs open under a combo box has Enter and Esc to itself.
bool HasOpenList(HWND focus) {
  for (const HWND at : {focus, ::GetParent(focus)}) {
    wchar_t name[16];
    if (at == nullptr || ::GetClassNameW(at, name, ARRAYSIZE(name)) == 0) continue;
    if (::lstrcmpiW(name, L"ComboBox") == 0) return ::SendMessageW(at, CB_GETDROPPEDSTATE, 0, 0) != 0;
  }
  return false;
}

}  // namespace

FormWindow::FormWindow(std::shared_ptr<forms::Form> form, const ViewFactory& views, HWND owner)
    : form_(std::move(form)),
      dialog_(dynamic_cast<forms::Dialog*>(form_.get())),
      owner_(owner),
      floats_(dialog_ != nullptr && dialog_->Border() == forms::FormBorder::None) {
  Make(owner);
  view_ = views.MakeView(*form_, Handle());
  changed_ = form_->Changed.Subscribe([this] { Follow(); });
  shownAgain_ = form_->ShownAgain.Subscribe([this] { ComeToFront(); });
  Follow();
}

FormWindow::~FormWindow() {
  Retire();
  view_.reset();
  Destroy();
}

void FormWindow::Retire() {
  if (retired_) return;
  retired_ = true;
  changed_.Reset();
  shownAgain_.Reset();
  removed_.Reset();
  Hide();
  InputHook::The().Remove(Handle());
  if (dialog_ != nullptr) dialog_->SetWindow(0);
}

void FormWindow::Make(HWND owner) {
  Making making;
  making.text = form_->Caption();
  making.style = StyleOf(dialog_);
  making.extendedStyle = ExtendedStyleOf(dialog_);
  making.parent = owner;
  making.classStyle = CS_DBLCLKS;
  Create(making);
  if (dialog_ != nullptr) dialog_->SetWindow(HandleOf(Handle()));
  InputHook::The().Add(Handle(), *this);
  removed_ = InputHook::The().Removed.Subscribe([this](const MSG&) { NoteFocus(); });
}

HWND FormWindow::ModalInFront() {
  return Modals().empty() ? nullptr : Modals().back();
}

/// Whether the form was made a child of another window, as SetParent of NativeWindows does it.
bool FormWindow::IsChild() const {
  return (::GetWindowLongW(Handle(), GWL_STYLE) & WS_CHILD) != 0;
}

void FormWindow::Follow() {
  if (busy_) return;
  if (Text() != form_->Caption()) SetText(form_->Caption());
  FollowSize();
  FollowPlace();
  const bool visible = (::GetWindowLongW(Handle(), GWL_STYLE) & WS_VISIBLE) != 0;
  if (form_->Visible() == visible) return;
  if (form_->Visible()) {
    Show();
  } else {
    Hide();
  }
}

/// The size of a form with a border is its view's choice. A form that floats may be higher than any screen: it gets
/// the lower part alone, which is what could be seen.
void FormWindow::FollowSize() {
  if (!view_) return;
  RECT now{};
  ::GetWindowRect(Handle(), &now);
  RECT wanted{0, 0, 0, 0};
  if (floats_) {
    wanted = {0, 0, std::max<LONG>(dialog_->Width(), 1),
              std::clamp<LONG>(dialog_->Height(), 1, ::GetSystemMetrics(SM_CYVIRTUALSCREEN))};
  } else {
    const SIZE inside = view_->WantedSize();
    wanted = {0, 0, inside.cx, inside.cy};
    ::AdjustWindowRectEx(&wanted, StyleOf(dialog_), FALSE, ExtendedStyleOf(dialog_));
  }
  const int width = Width(wanted);
  const int height = Height(wanted);
  if (width != Width(now) || height != Height(now)) {
    ::SetWindowPos(Handle(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (::IsWindowVisible(Handle()) && (width > Width(now) || height > Height(now))) KeepInside();
  }
  if (dialog_ == nullptr || floats_) return;
  const FlagScope busy(busy_);
  dialog_->SetSize(width, height);
}

/// A form that is a child is cut off by its parent: where it grows, as with the texts of another language, and where it
/// was placed by the screen while the host fills only a part of that, or is on another screen.
void FormWindow::KeepInside() {
  if (!IsChild() || dialog_ == nullptr) return;
  const HWND parent = ::GetParent(Handle());
  if (::IsIconic(parent)) return;
  RECT room{};
  ::GetClientRect(parent, &room);
  RECT now{};
  ::GetWindowRect(Handle(), &now);
  ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&now), 2);
  const LONG left = std::max<LONG>(std::min(now.left, room.right - Width(now)), 0);
  const LONG top = std::max<LONG>(std::min(now.top, room.bottom - Height(now)), 0);
  if (left == now.left && top == now.top) return;
  const FlagScope busy(busy_);
  ::SetWindowPos(Handle(), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  ::GetWindowRect(Handle(), &now);
  dialog_->Move(now.left, now.top);
}

void FormWindow::FollowPlace() {
  if (dialog_ == nullptr) return;
  RECT now{};
  ::GetWindowRect(Handle(), &now);
  POINT place{dialog_->Left(), dialog_->Top()};
  if (floats_) place.y += dialog_->Height() - Height(now);
  if (place.x == now.left && place.y == now.top) return;
  if (IsChild()) ::ScreenToClient(::GetParent(Handle()), &place);
  const FlagScope busy(busy_);
  ::SetWindowPos(Handle(), nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// A form that floats and was never filled has nothing to show, and any other would lie above a window that waits for
/// an answer, whoever asks.
bool FormWindow::IsHeldBack() const {
  return floats_ && (dialog_->Width() == 0 || (owner_ != nullptr && !::IsWindowEnabled(owner_)));
}

void FormWindow::Show() {
  if (floats_) {
    ::ShowWindow(Handle(), SW_SHOWNOACTIVATE);
    return;
  }
  NoteFocusBefore();
  if (const HWND above = OwnerWindow(); !IsChild() && above != Handle()) {
    ::SetWindowLongPtrW(Handle(), GWLP_HWNDPARENT, static_cast<LONG_PTR>(reinterpret_cast<std::intptr_t>(above)));
  }
  if (form_->ShownModal()) BeginModal();
  KeepInside();
  ::ShowWindow(Handle(), SW_SHOW);
  ComeToFront();
}

void FormWindow::Hide() {
  const bool focused = HasFocus();
  EndModal();
  ::ShowWindow(Handle(), SW_HIDE);
  if (focused) ReturnFocus();
}

void FormWindow::NoteFocusBefore() {
  if (!HasFocus()) focusBefore_ = ::GetFocus();
}

/// Back to where it was before this form took it; a host's main window may not remember that itself.
void FormWindow::ReturnFocus() {
  const HWND before = std::exchange(focusBefore_, nullptr);
  const bool usable = before != nullptr && ::IsWindowVisible(before) && ::IsWindowEnabled(before) &&
                      ::GetWindowThreadProcessId(before, nullptr) == ::GetCurrentThreadId();
  if (usable) ::SetFocus(before);
  if (usable && ::GetFocus() == before) return;
  if (IsChild() && owner_ != nullptr) ::SetFocus(owner_);
}

void FormWindow::ComeToFront() {
  if (floats_) return;
  NoteFocusBefore();
  if (IsChild()) {
    ::BringWindowToTop(Handle());
    if (!HasFocus()) ::SetFocus(Handle());
  } else {
    ::SetForegroundWindow(Handle());
  }
}

/// The window above which this one stays: that of the form's owner, else of the modal form in front, else the host's.
HWND FormWindow::OwnerWindow() const {
  const auto owner = std::dynamic_pointer_cast<forms::Dialog>(form_->Owner());
  HWND window = nullptr;
  if (owner) window = WindowOf(owner->hWnd());
  if (window == nullptr) window = ModalInFront();
  if (window == nullptr) window = owner_;
  return window != nullptr ? ::GetAncestor(window, GA_ROOT) : nullptr;
}

void FormWindow::BeginModal() {
  EndModal();
  disabled_.emplace(Handle());
  Modals().push_back(Handle());
}

/// The others are enabled before this one is hidden, so that the activation goes to one of them.
void FormWindow::EndModal() {
  disabled_.reset();
  std::erase(Modals(), Handle());
}

bool FormWindow::HasFocus() const {
  const HWND focus = ::GetFocus();
  return focus != nullptr && (focus == Handle() || ::IsChild(Handle(), focus));
}

void FormWindow::NoteFocus() {
  if (!IsChild() || !::IsWindowVisible(Handle()) || HasFocus() == looksActive_) return;
  looksActive_ = HasFocus();
  ::PostMessageW(Handle(), kFocusMoved, looksActive_ ? 1 : 0, 0);
}

void FormWindow::ShowFocus(bool active) {
  if (IsChild()) Default(WM_NCACTIVATE, active ? TRUE : FALSE, 0);
}

void FormWindow::TellPlace() {
  if (dialog_ == nullptr || floats_ || busy_ || !::IsWindowVisible(Handle())) return;
  RECT now{};
  ::GetWindowRect(Handle(), &now);
  const FlagScope busy(busy_);
  dialog_->Move(now.left, now.top);
}

bool FormWindow::TakeKey(const MSG& message) {
  const auto form = form_;
  if (view_ && view_->TakeKey(message)) return true;
  if (message.message == WM_SYSKEYDOWN && message.wParam == VK_F4 && IsChild()) {
    form->CloseByUser();  // for a child the window system would close the host
    return true;
  }
  if (message.message == WM_KEYDOWN && dialog_ != nullptr && !HasOpenList(message.hwnd)) {
    const auto key = static_cast<std::int16_t>(message.wParam);
    if (dialog_->PressKey(key, static_cast<std::int16_t>(InputHook::HeldModifiers()))) return true;
  }
  if (message.message == WM_SYSCHAR) {
    return dialog_ != nullptr && dialog_->PressAccessKey(static_cast<char16_t>(message.wParam));
  }
  return GoOn(message);
}

/// Tab and arrows. Enter and Esc have been the form's, or go to the control.
bool FormWindow::GoOn(const MSG& message) {
  if (message.message != WM_KEYDOWN || message.wParam == VK_RETURN || message.wParam == VK_ESCAPE) return false;
  MSG copy = message;
  return ::IsDialogMessageW(Handle(), &copy) != FALSE;
}

LRESULT FormWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CLOSE: {
      const auto form = form_;
      form->CloseByUser();
      return 0;
    }
    case WM_SIZE:
      if (view_) ::MoveWindow(view_->Handle(), 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
      return 0;
    case WM_MOVE:
      TellPlace();
      return 0;
    case WM_SETFOCUS:
      if (view_) view_->TakeFocus();
      return 0;
    case WM_ENABLE:
      if (floats_ && wParam == FALSE) ::ShowWindow(Handle(), SW_HIDE);  // above a form that is shown modally now
      break;
    case WM_WINDOWPOSCHANGING:
      if (IsHeldBack()) reinterpret_cast<WINDOWPOS*>(lParam)->flags &= ~static_cast<UINT>(SWP_SHOWWINDOW);
      break;
    case WM_MOUSEACTIVATE:
      if (floats_) return MA_NOACTIVATE;
      if (IsChild()) ::BringWindowToTop(Handle());
      break;
    case WM_NCLBUTTONDOWN:
      if (IsChild() && !HasFocus()) ::SetFocus(Handle());
      break;
    case kFocusMoved:
      ShowFocus(wParam != 0);
      return 0;
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace quorvane::windows
