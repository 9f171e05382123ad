// The tabs are the system's, so that they look and read as such; their crosses are drawn over them, in the room that
// blanks after the caption keep free. Presses of the mouse never reach the system's control: it would select.

#include "windows/results/ResultTabBar.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "platform/forms/ImageList.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"
#include "windows/controls/Input.h"
#include "windows/controls/ThemeScope.h"
#include "windows/forms/Fonts.h"
#include "windows/forms/Metrics.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

constexpr UINT_PTR kFollowTimer = 1;
constexpr int kWidestText = 220;  // pixels at 96 an inch, as the others
constexpr int kWidestTip = 400;
constexpr int kSignBox = 14;
constexpr int kSignMargin = 5;
constexpr std::u16string_view kRoomForSign = u"     ";

/// Plain text: an "&" of it marks nothing, and what is no letter is a blank.
std::u16string PlainCaption(std::u16string_view caption) {
  std::u16string plain;
  for (const char16_t c : caption) {
    plain += c < u' ' ? u' ' : c;
    if (c == u'&') plain += c;
  }
  return plain;
}

class ScreenFont {
 public:
  ScreenFont() : dc_(::GetDC(nullptr)), before_(::SelectObject(dc_, DialogFont())) {}
  ~ScreenFont() {
    ::SelectObject(dc_, before_);
    ::ReleaseDC(nullptr, dc_);
  }
  ScreenFont(const ScreenFont&) = delete;
  ScreenFont& operator=(const ScreenFont&) = delete;

  /// How many characters of `text` go into `width`.
  int Fitting(const std::u16string& text, int width) const {
    int fitting = 0;
    SIZE size{};
    ::GetTextExtentExPointW(dc_, Wide(text), static_cast<int>(text.size()), width, &fitting, nullptr, &size);
    return fitting;
  }

 private:
  HDC dc_;
  HGDIOBJ before_;
};

void DrawLine(HDC dc, int x1, int y1, int x2, int y2) {
  ::MoveToEx(dc, x1, y1, nullptr);
  ::LineTo(dc, x2, y2);
}

}  // namespace

ResultTabBar::ResultTabBar(forms::TabControl& control, HWND parent)
    : control_(control), follow_(kFollowTimer, [this] { Follow(); }) {
  const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_TAB_CLASSES};
  ::InitCommonControlsEx(&classes);
  const ThemeScope themed;
  Making making;
  making.control = WC_TABCONTROLW;
  making.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_TABSTOP | TCS_TOOLTIPS;
  making.parent = parent;
  making.place = {0, 0, Scaled(400), Scaled(24)};
  Create(making);
  ::SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), FALSE);
  ::SendMessageW(Handle(), TCM_SETMINTABWIDTH, 0, Scaled(20));
  const auto tips = reinterpret_cast<HWND>(::SendMessageW(Handle(), TCM_GETTOOLTIPS, 0, 0));
  ::SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, Scaled(kWidestTip));
  changed_ = control_.Changed.Subscribe([this] { follow_.Ask(Handle()); });
  Follow();
}

ResultTabBar::~ResultTabBar() {
  OnGone();
  Destroy();
}

void ResultTabBar::OnGone() {
  changed_.Reset();
  follow_.Drop();
}

int ResultTabBar::WantedHeight() const {
  RECT tab{};
  if (!::SendMessageW(Handle(), TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&tab))) return Scaled(24);
  return tab.bottom + 1;
}

RECT ResultTabBar::RectOf(const std::shared_ptr<forms::Tab>& tab) const {
  RECT place{};
  const auto found = std::ranges::find(shown_, tab, &Shown::tab);
  if (found == shown_.end()) return place;
  ::SendMessageW(Handle(), TCM_GETITEMRECT, static_cast<WPARAM>(found - shown_.begin()),
                 reinterpret_cast<LPARAM>(&place));
  return place;
}

RECT ResultTabBar::CrossOf(const std::shared_ptr<forms::Tab>& tab) const {
  const RECT place = RectOf(tab);
  if (!tab || !tab->CanClose() || ::IsRectEmpty(&place)) return {};
  const int side = Scaled(kSignBox);
  const LONG right = place.right - Scaled(kSignMargin);
  const LONG top = (place.top + place.bottom - side) / 2;
  return {right - side, top, right, top + side};
}

// --- following the control ---

std::u16string ResultTabBar::Shortened(std::u16string text) const {
  const ScreenFont font;
  const int width = Scaled(kWidestText);
  const auto fitting = static_cast<std::size_t>(font.Fitting(text, width));
  if (fitting >= text.size()) return text;
  text.resize(fitting);
  return text + u"\u2026";
}

void ResultTabBar::Follow() {
  const std::vector<std::shared_ptr<forms::Tab>> tabs = control_.Tabs();
  for (std::size_t i = shown_.size(); i-- > 0;) {
    if (std::ranges::find(tabs, shown_[i].tab) != tabs.end()) continue;
    shown_.erase(shown_.begin() + static_cast<std::ptrdiff_t>(i));
    ::SendMessageW(Handle(), TCM_DELETEITEM, i, 0);
  }
  for (std::size_t i = 0; i < tabs.size(); ++i) {
    if (i >= shown_.size() || shown_[i].tab != tabs[i]) {
      shown_.insert(shown_.begin() + static_cast<std::ptrdiff_t>(i), {tabs[i], {}});
      TCITEMW item{};
      item.mask = TCIF_TEXT;
      item.pszText = const_cast<wchar_t*>(L"");
      ::SendMessageW(Handle(), TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&item));
    }
    FollowTab(i);
    if (tabs[i] == control_.SelectedTab() &&
        static_cast<std::size_t>(::SendMessageW(Handle(), TCM_GETCURSEL, 0, 0)) != i) {
      ::SendMessageW(Handle(), TCM_SETCURSEL, i, 0);
    }
  }
  if (::IsWindowEnabled(Handle()) != (control_.Enabled() ? TRUE : FALSE)) {
    if (!control_.Enabled() && ::GetFocus() == Handle()) TabPressed.Raise();  // else it would be nowhere
    ::EnableWindow(Handle(), control_.Enabled());
    ::InvalidateRect(Handle(), nullptr, TRUE);
  }
}

void ResultTabBar::FollowTab(std::size_t index) {
  Shown& shown = shown_[index];
  std::u16string text = Shortened(PlainCaption(shown.tab->Caption()));
  if (shown.tab->CanClose() || shown.tab->IconIndex() >= 0) text += kRoomForSign;
  if (text == shown.text) return;
  shown.text = text;
  TCITEMW item{};
  item.mask = TCIF_TEXT;
  item.pszText = const_cast<wchar_t*>(Wide(shown.text));
  ::SendMessageW(Handle(), TCM_SETITEMW, index, reinterpret_cast<LPARAM>(&item));
  ::InvalidateRect(Handle(), nullptr, TRUE);  // a narrower tab leaves its old edge beside the last one
}

// --- what the user does ---

std::shared_ptr<forms::Tab> ResultTabBar::TabAt(int x, int y) const {
  TCHITTESTINFO hit{};
  hit.pt = {x, y};
  const LRESULT index = ::SendMessageW(Handle(), TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  return index >= 0 && static_cast<std::size_t>(index) < shown_.size() ? shown_[static_cast<std::size_t>(index)].tab
                                                                       : nullptr;
}

/// A cross works as a button does: the press alone closes nothing.
void ResultTabBar::OnPress(std::int16_t button, int x, int y) {
  follow_.Now();
  const std::shared_ptr<forms::Tab> tab = TabAt(x, y);
  pressedCross_.reset();
  if (button == forms::kLeftButton) {
    pressed_ = tab;
    const RECT cross = CrossOf(tab);
    if (::PtInRect(&cross, {x, y})) {
      pressedCross_ = tab;
      return;
    }
  }
  const auto fx = static_cast<float>(x);
  const auto fy = static_cast<float>(y);
  if (tab) {
    control_.PressTab(tab, button, HeldKeys(), fx, fy);
  } else {
    control_.PressBar(button, HeldKeys(), fx, fy);
  }
  follow_.Now();
}

void ResultTabBar::OnRelease(int x, int y) {
  const std::shared_ptr<forms::Tab> tab = std::exchange(pressedCross_, {}).lock();
  if (!tab) return;
  const RECT cross = CrossOf(tab);
  if (!::PtInRect(&cross, {x, y})) return;
  control_.PressClose(tab);
  follow_.Now();
}

/// The second press of two counts as a double click only where the first one hit the same tab: the tab under the mouse
/// may be one that the first press has made. Anywhere else, and with another button, it is a press again.
void ResultTabBar::OnDoubleClick(UINT message, int x, int y) {
  follow_.Now();
  const std::shared_ptr<forms::Tab> tab = TabAt(x, y);
  const RECT cross = CrossOf(tab);
  if (message != WM_LBUTTONDBLCLK || ::PtInRect(&cross, {x, y})) return OnPress(ButtonOf(message), x, y);
  if (tab && tab == pressed_.lock()) control_.DoubleClickTab(tab);
  follow_.Now();
}

void ResultTabBar::OnHover(const std::shared_ptr<forms::Tab>& overCross) {
  const std::shared_ptr<forms::Tab> before = hotCross_.lock();
  if (before == overCross) return;
  hotCross_ = overCross;
  for (const auto& tab : {before, overCross}) {
    const RECT cross = CrossOf(tab);
    ::InvalidateRect(Handle(), &cross, FALSE);
  }
}

bool ResultTabBar::OnMouse(UINT message, LPARAM lParam) {
  const int x = MouseX(lParam);
  const int y = MouseY(lParam);
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
      OnPress(ButtonOf(message), x, y);
      return true;
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK:
      OnDoubleClick(message, x, y);
      return true;
    case WM_LBUTTONUP:
      OnRelease(x, y);
      return true;
    case WM_RBUTTONUP:  // would ask for a menu, which the press has opened
      return true;
    case WM_MOUSEMOVE: {
      const std::shared_ptr<forms::Tab> tab = TabAt(x, y);
      const RECT cross = CrossOf(tab);
      OnHover(::PtInRect(&cross, {x, y}) ? tab : nullptr);
      TRACKMOUSEEVENT leave{sizeof(leave), TME_LEAVE, Handle(), 0};
      ::TrackMouseEvent(&leave);
      return false;  // tool tips live on it
    }
    case WM_MOUSELEAVE:
      OnHover(nullptr);
      return false;
    default:
      return false;
  }
}

void ResultTabBar::SelectBeside(int step) {
  follow_.Now();
  const auto now = std::ranges::find(shown_, control_.SelectedTab(), &Shown::tab) - shown_.begin() + step;
  if (!control_.Enabled() || now < 0 || now >= static_cast<std::ptrdiff_t>(shown_.size())) return;
  const std::shared_ptr<forms::Tab> tab = shown_[static_cast<std::size_t>(now)].tab;
  tab->Select();
  follow_.Now();
}

void ResultTabBar::OnKey(std::int16_t key) {
  if (key == VK_TAB) return TabPressed.Raise();
  if (key == VK_LEFT || key == VK_RIGHT) return SelectBeside(key == VK_LEFT ? -1 : 1);
  KeyPressed.Raise(key);
}

/// The bar's tool tip asks by the number of the tab.
bool ResultTabBar::AnswerTip(LPARAM lParam) {
  auto* tip = reinterpret_cast<NMTTDISPINFOW*>(lParam);
  if (tip->hdr.code != TTN_GETDISPINFOW) return false;
  const auto index = static_cast<std::size_t>(tip->hdr.idFrom);
  tip_ = index < shown_.size() ? shown_[index].tab->ToolTipText() : std::u16string();
  tip->lpszText = const_cast<wchar_t*>(Wide(tip_));
  return true;
}

// --- drawing ---

void ResultTabBar::DrawSign(HDC dc, const std::shared_ptr<forms::Tab>& tab) const {
  const int arm = Scaled(kSignBox) / 4;
  if (tab->CanClose()) {
    const RECT cross = CrossOf(tab);
    const int x = (cross.left + cross.right) / 2;
    const int y = (cross.top + cross.bottom) / 2;
    if (tab == hotCross_.lock()) ::FrameRect(dc, &cross, ::GetSysColorBrush(COLOR_BTNSHADOW));
    DrawLine(dc, x - arm, y - arm, x + arm + 1, y + arm + 1);
    DrawLine(dc, x - arm, y + arm, x + arm + 1, y - arm - 1);
  } else if (tab->IconIndex() >= 0) {
    const RECT place = RectOf(tab);
    const int x = (place.left + place.right) / 2;
    const int y = (place.top + place.bottom) / 2;
    DrawLine(dc, x - arm - 1, y, x + arm + 2, y);
    DrawLine(dc, x, y - arm - 1, x, y + arm + 2);
  }
}

void ResultTabBar::DrawSigns(HDC dc) const {
  const int thick = std::max(1, Scaled(1));
  const HPEN pen = ::CreatePen(PS_SOLID, thick, ::GetSysColor(control_.Enabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
  const HGDIOBJ before = ::SelectObject(dc, pen);
  for (const Shown& shown : shown_) DrawSign(dc, shown.tab);
  ::SelectObject(dc, before);
  ::DeleteObject(pen);
}

LRESULT ResultTabBar::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (OnMouse(message, lParam)) return 0;
  switch (message) {
    case WM_PAINT: {
      const LRESULT result = Default(message, wParam, lParam);
      const HDC dc = ::GetDC(Handle());
      DrawSigns(dc);
      ::ReleaseDC(Handle(), dc);
      return result;
    }
    case WM_PRINTCLIENT: {
      const LRESULT result = Default(message, wParam, lParam);
      DrawSigns(reinterpret_cast<HDC>(wParam));
      return result;
    }
    case WM_KEYDOWN:
      OnKey(static_cast<std::int16_t>(wParam));
      return 0;
    case WM_NOTIFY:
      if (AnswerTip(lParam)) return 0;
      break;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTALLKEYS;
    case WM_TIMER:
      return follow_.Take(wParam) ? 0 : Default(message, wParam, lParam);
    case WM_NCDESTROY:
      OnGone();
      break;
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace quorvane::windows
