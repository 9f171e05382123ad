#include "windows/results/ResultStatusLine.h"

#include <utility>

#include "platform/forms/Label.h"
#include "windows/controls/Input.h"
#include "windows/controls/ToolTips.h"
#include "windows/forms/Fonts.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

constexpr UINT_PTR kFollowTimer = 1;

}  // namespace

ResultStatusLine::ResultStatusLine(std::shared_ptr<forms::Label> label, HWND parent, ToolTips& tips)
    : label_(std::move(label)), tips_(tips), follow_(kFollowTimer, [this] { Follow(); }) {
  Making making;
  making.control = L"STATIC";
  making.text = label_->Caption();
  making.style = WS_CHILD | WS_CLIPSIBLINGS | SS_ENDELLIPSIS | SS_NOPREFIX | SS_NOTIFY;
  making.parent = parent;
  Create(making);
  ::SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), FALSE);
  changed_ = label_->Changed.Subscribe([this] { follow_.Ask(Handle()); });
}

ResultStatusLine::~ResultStatusLine() {
  OnGone();
  Destroy();
}

void ResultStatusLine::OnGone() {
  changed_.Reset();
  follow_.Drop();
}

void ResultStatusLine::Follow() {
  SetText(label_->Caption());
  FollowTip();
}

void ResultStatusLine::FollowTip() {
  std::u16string tip = IsCut() ? label_->Caption() : std::u16string();
  if (tip == tip_) return;
  tip_ = std::move(tip);
  tips_.Set(Handle(), tip_);
}

bool ResultStatusLine::IsCut() const {
  const std::u16string& text = label_->Caption();
  const HDC dc = ::GetDC(Handle());
  const HGDIOBJ before = ::SelectObject(dc, DialogFont());
  SIZE size{};
  ::GetTextExtentPoint32W(dc, Wide(text), static_cast<int>(text.size()), &size);
  ::SelectObject(dc, before);
  ::ReleaseDC(Handle(), dc);
  RECT inside{};
  ::GetClientRect(Handle(), &inside);
  return size.cx > inside.right;
}

LRESULT ResultStatusLine::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
      label_->MouseDown.Raise(ButtonOf(message), HeldKeys(), static_cast<float>(MouseX(lParam)),
                              static_cast<float>(MouseY(lParam)));
      return 0;
    case WM_RBUTTONUP:  // would ask for a menu, which the press has opened
      return 0;
    case WM_TIMER:
      return follow_.Take(wParam) ? 0 : Default(message, wParam, lParam);
    case WM_SIZE:
      FollowTip();
      break;
    case WM_NCDESTROY:
      OnGone();
      break;
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace quorvane::windows
