#include "windows/controls/DialogView.h"

#include <algorithm>

#include "base/FlagScope.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Control.h"
#include "platform/forms/Dialog.h"
#include "platform/forms/Frame.h"
#include "platform/forms/OptionButton.h"
#include "windows/controls/ButtonView.h"
#include "windows/controls/CheckView.h"
#include "windows/controls/FrameView.h"
#include "windows/controls/Input.h"
#include "windows/controls/MenuView.h"
#include "windows/controls/OptionView.h"
#include "windows/controls/TabGround.h"
#include "windows/forms/Fonts.h"
#include "windows/forms/InputHook.h"

namespace quorvane::windows {

namespace {

constexpr int kMargin = 7;
constexpr int kChoiceGap = 3;
constexpr std::int32_t kCtrl = 2;

bool IsEdit(HWND window) {
  wchar_t name[8];
  return ::GetClassNameW(window, name, ARRAYSIZE(name)) != 0 && ::lstrcmpiW(name, L"Edit") == 0;
}

}  // namespace

DialogView::DialogView(forms::Dialog& dialog, HWND parent) : dialog_(dialog), units_(DialogFont()), tips_(parent) {
  Making making;
  making.style = WS_CHILD | WS_VISIBLE;
  making.extendedStyle = WS_EX_CONTROLPARENT;
  making.parent = parent;
  making.classStyle = CS_DBLCLKS;
  Create(making);
  changed_ = dialog_.Changed.Subscribe([this] { FollowFocus(); });
}

DialogView::~DialogView() = default;

void DialogView::EnterMenu(forms::Menu& menu) {
  menus_.push_back(std::make_unique<MenuView>(menu, [this] { return Handle(); }));
}

std::unique_ptr<Placeable> DialogView::EnterChoices(const std::shared_ptr<forms::Frame>& frame, HWND parent) {
  auto& box = Enter<FrameView>(frame, parent);
  auto column = MakeColumn(units_.Down(kChoiceGap));
  bool first = true;
  for (const auto& child : frame->Children()) {
    if (const auto option = std::dynamic_pointer_cast<forms::OptionButton>(child)) {
      column->Add(Enter<OptionView>(option, parent, first));
    } else if (const auto check = std::dynamic_pointer_cast<forms::CheckBox>(child)) {
      column->Add(Enter<CheckView>(check, parent));
    }
    first = false;
  }
  column->AddStretch();
  return box.Around(std::move(column));
}

void DialogView::SetLayout(std::unique_ptr<Placeable> root, const forms::Control& first) {
  auto framed = MakeColumn(0);
  framed->SetMargins(units_.Margins(kMargin, kMargin));
  framed->Add(std::move(root), {.Stretch = 1});
  root_ = std::move(framed);
  first_ = ViewOf(first);
  ShowDefaultButton();
  NoteSizes();
}

/// The form's window asks for the size after each change of the form.
void DialogView::NoteSizes() {
  if (!root_) return;
  const SIZE wanted = root_->Least();
  const bool other = wanted.cx != wanted_.cx || wanted.cy != wanted_.cy;
  wanted_ = wanted;
  if (other) dialog_.Changed.Raise();
  Arrange();
}

void DialogView::Arrange() const {
  RECT room{};
  ::GetClientRect(Handle(), &room);
  if (root_ && room.right > 0) root_->Place(room);
}

ControlView* DialogView::ViewOf(const forms::Control& control) const {
  const auto found = std::ranges::find_if(views_, [&](const auto& view) { return view->Model().get() == &control; });
  return found != views_.end() ? found->get() : nullptr;
}

void DialogView::NoteFocus(ControlView* view) {
  holding_ = false;
  other_ = nullptr;
  followed_ = view->Model();
  dialog_.TakeFocus(view->Model());
  ShowDefaultButton();
}

/// Some windows, such as the parts of the key editor, are no controls: what the focus leaves for one of those is not
/// active any more, and Enter must not press it.
void DialogView::NoteLeft(HWND next) {
  if (giving_ || next == nullptr || next == Handle() || !::IsChild(Handle(), next)) return;
  const auto shows = [next](const auto& view) { return view->Handle() == next || ::IsChild(view->Handle(), next); };
  if (std::ranges::any_of(views_, shows)) return;
  other_ = next;
  followed_.reset();
  dialog_.TakeFocus(nullptr);
  ShowDefaultButton();
}

void DialogView::HoldFocus() {
  const FlagScope giving(giving_);
  ::SetFocus(Handle());
  holding_ = true;
}

bool DialogView::IsInFront() const {
  const HWND focus = ::GetFocus();
  const HWND frame = ::GetParent(Handle());
  return focus != nullptr && (focus == frame || ::IsChild(frame, focus));
}

/// While controls are disabled the focus waits on the surface; the dialog's active control stays what it is, and gets
/// the focus back. A dialog that is not in front leaves the focus where it is, and gets it there by TakeFocus.
void DialogView::FollowFocus() {
  const auto active = dialog_.ActiveControl();
  const bool asked = active != followed_.lock();
  followed_ = active;
  if (!active || giving_ || !(asked || holding_) || !IsInFront()) return;
  ControlView* view = ViewOf(*active);
  if (view != nullptr && view->IsUsable() && !view->HasFocus()) GiveFocus(*view);
}

void DialogView::GiveFocus(ControlView& view) {
  const FlagScope giving(giving_);
  ::SetFocus(view.FocusWindow());
  holding_ = false;
}

void DialogView::TakeFocus() {
  const auto active = dialog_.ActiveControl();
  ControlView* view = active ? ViewOf(*active) : nullptr;
  if (view != nullptr && view->IsUsable()) return GiveFocus(*view);
  if (other_ != nullptr && ::IsWindowVisible(other_) && ::IsWindowEnabled(other_)) {
    ::SetFocus(other_);
  } else if (first_ != nullptr && first_->IsUsable()) {
    GiveFocus(*first_);
  } else {
    HoldFocus();
  }
}

void DialogView::ShowDefaultButton() const {
  const auto active = std::dynamic_pointer_cast<forms::CommandButton>(dialog_.ActiveControl());
  const auto shown = active ? active : dialog_.DefaultButton();
  for (const auto& view : views_) {
    if (auto* button = dynamic_cast<ButtonView*>(view.get())) button->ShowDefault(button->Model() == shown);
  }
}

/// Not every Windows has this key in its boxes of one line.
bool DialogView::TakeKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || message.wParam != 'A' || InputHook::HeldModifiers() != kCtrl) return false;
  if (!IsEdit(message.hwnd)) return false;
  ::SendMessageW(message.hwnd, EM_SETSEL, 0, -1);
  return true;
}

bool DialogView::ColorOf(HWND control, HDC context, LRESULT& result) const {
  if (std::ranges::find(tabGrounds_, ::GetParent(control)) == tabGrounds_.end()) return false;
  ::SetBkColor(context, TabGroundColor());
  result = reinterpret_cast<LRESULT>(TabGroundBrush());
  return true;
}

/// Also what is disabled or shows something alone is a control: the press of one is not on the surface.
bool DialogView::IsSurface(LPARAM place) const {
  const POINT point{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
  return ::ChildWindowFromPointEx(Handle(), point, CWP_SKIPINVISIBLE) == Handle();
}

LRESULT DialogView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      Arrange();
      return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK:
      if (!IsSurface(lParam)) return 0;
      if (!IsInFront()) TakeFocus();
      dialog_.PressMouse(ButtonOf(message), static_cast<std::int16_t>(InputHook::HeldModifiers()),
                         static_cast<float>(static_cast<short>(LOWORD(lParam))),
                         static_cast<float>(static_cast<short>(HIWORD(lParam))));
      return 0;
    case WM_LBUTTONDBLCLK:
      if (IsSurface(lParam)) dialog_.DoubleClick();
      return 0;
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace quorvane::windows
