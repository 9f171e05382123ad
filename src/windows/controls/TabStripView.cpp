#include "windows/controls/TabStripView.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "chordtrap/KeyChord.h"
#include "platform/forms/TabStrip.h"
#include "windows/controls/DialogView.h"
#include "windows/controls/TabGround.h"
#include "windows/forms/InputHook.h"
#include "windows/forms/Metrics.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

constexpr int kMargin = 6;

}  // namespace

class TabStripView::PageWindow final : public Window {
 public:
  explicit PageWindow(HWND parent) {
    Making making;
    making.style = WS_CHILD;
    making.extendedStyle = WS_EX_CONTROLPARENT;
    making.parent = parent;
    Create(making);
  }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message != WM_ERASEBKGND) return Default(message, wParam, lParam);
    RECT room{};
    ::GetClientRect(Handle(), &room);
    ::FillRect(reinterpret_cast<HDC>(wParam), &room, TabGroundBrush());
    return 1;
  }
};

TabStripView::TabStripView(DialogView& dialog, const std::shared_ptr<forms::TabStrip>& strip, HWND parent)
    : ControlView(dialog, strip), strip_(strip) {
  Make(parent, WC_TABCONTROLW, WS_TABSTOP | WS_GROUP | WS_CLIPSIBLINGS);
  for (std::int16_t i = 0; i < strip->Tabs(); ++i) {
    wchar_t empty[] = L"";
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = empty;
    ::SendMessageW(Handle(), TCM_INSERTITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    captions_.emplace_back();
    pages_.push_back(std::make_unique<PageWindow>(parent));
    layouts_.emplace_back();
  }
}

TabStripView::~TabStripView() = default;

HWND TabStripView::Page(std::int16_t tab) const {
  return pages_.at(static_cast<std::size_t>(tab))->Handle();
}

void TabStripView::SetLayout(std::int16_t tab, std::unique_ptr<Placeable> inside) {
  auto framed = MakeColumn(0);
  framed->SetMargins(TheDialog().Units().Margins(kMargin, kMargin));
  framed->Add(std::move(inside), {.Stretch = 1});
  layouts_.at(static_cast<std::size_t>(tab)) = std::move(framed);
}

void TabStripView::Show() {
  for (std::int16_t i = 0; i < strip_->Tabs(); ++i) {
    std::u16string& shown = captions_[static_cast<std::size_t>(i)];
    if (shown == strip_->TabCaption(i)) continue;
    shown = strip_->TabCaption(i);
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = reinterpret_cast<wchar_t*>(shown.data());
    ::SendMessageW(Handle(), TCM_SETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
  }
  if (::SendMessageW(Handle(), TCM_GETCURSEL, 0, 0) != strip_->Tab()) {
    ::SendMessageW(Handle(), TCM_SETCURSEL, static_cast<WPARAM>(strip_->Tab()), 0);
  }
  for (std::int16_t i = 0; i < strip_->Tabs(); ++i) ::ShowWindow(Page(i), i == strip_->Tab() ? SW_SHOWNA : SW_HIDE);
}

bool TabStripView::TakeKey(const MSG& message) {
  if (message.message != WM_KEYDOWN) return false;
  const std::int32_t held = InputHook::HeldModifiers();
  const bool tab = message.wParam == VK_TAB && (held & ~chordtrap::kShift) == chordtrap::kCtrl;
  const bool page = (message.wParam == VK_PRIOR || message.wParam == VK_NEXT) && held == chordtrap::kCtrl;
  if (!tab && !page) return false;
  const bool back = tab ? (held & chordtrap::kShift) != 0 : message.wParam == VK_PRIOR;
  const int count = strip_->Tabs();
  ::SetFocus(Handle());
  strip_->Pick(static_cast<std::int16_t>((strip_->Tab() + (back ? count - 1 : 1)) % count));
  Follow();
  return true;
}

SIZE TabStripView::Least() const {
  RECT room{0, 0, 0, 0};
  for (const auto& inside : layouts_) {
    if (!inside) continue;
    const SIZE least = inside->Least();
    room.right = std::max(room.right, least.cx);
    room.bottom = std::max(room.bottom, least.cy);
  }
  ::SendMessageW(Handle(), TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&room));
  return {Width(room), Height(room)};
}

/// The pages lie above the tabs, and Tab leads from the page to what comes after the tabs, and from there to the tabs.
void TabStripView::Place(const RECT& room) {
  ControlView::Place(room);
  ::SetWindowPos(Handle(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  RECT page = room;
  ::SendMessageW(Handle(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&page));
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    ::SetWindowPos(pages_[i]->Handle(), HWND_TOP, page.left, page.top, Width(page), Height(page), SWP_NOACTIVATE);
    if (layouts_[i]) layouts_[i]->Place({0, 0, Width(page), Height(page)});
  }
}

bool TabStripView::OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
  if (message != WM_NOTIFY) return ControlView::OnReflected(message, wParam, lParam, result);
  if (reinterpret_cast<const NMHDR*>(lParam)->code == TCN_SELCHANGE && !Following()) {
    strip_->Pick(static_cast<std::int16_t>(::SendMessageW(Handle(), TCM_GETCURSEL, 0, 0)));
    Follow();
  }
  return true;
}

}  // namespace quorvane::windows
