// Rows are all of one height and known by their number, so that only those on the screen cost anything: a paint asks
// the owner for them alone, and a list that grows thousands of times a second is looked at some sixty times. Scroll
// bars count in 32 bits as long as their place is asked for rather than taken from the message, which has 16 bits for
// it.

#include "windows/results/ResultListView.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/forms/OwnerDrawList.h"
#include "windows/controls/Input.h"
#include "windows/forms/BufferedPaint.h"
#include "windows/forms/GdiCanvas.h"
#include "windows/forms/Handles.h"
#include "windows/forms/Metrics.h"
#include "windows/forms/Monitor.h"
#include "windows/results/ResultListAccessible.h"
#include "windows/results/ResultListAnswers.h"

namespace quorvane::windows {

namespace {

constexpr UINT_PTR kFollowTimer = 1;
constexpr int kPadding = 2;  // above and below the text of a row, at 96 pixels an inch
constexpr int kLettersOfStep = 4;
constexpr UINT kWheelAcross = 0x020E;  // WM_MOUSEHWHEEL

int Padding() {
  return Scaled(kPadding);
}

/// Lines of one notch of the wheel; a page for "as much as there is".
int LinesOfNotch(int page) {
  UINT lines = 3;
  ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  return lines == WHEEL_PAGESCROLL ? page : static_cast<int>(std::min<UINT>(lines, 100));
}

}  // namespace

ResultListView::ResultListView(std::shared_ptr<forms::OwnerDrawList> list, HWND parent, ListPlace place)
    : kept_(std::move(list)), list_(*kept_), place_(place), follow_(kFollowTimer, [this] { Follow(); }) {
  Making making;
  making.parent = parent;
  making.style = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | WS_HSCROLL | WS_VSCROLL | LBS_HASSTRINGS;
  making.classStyle = CS_DBLCLKS;
  MeasureFont();
  shownIndex_ = list_.ListIndex();
  Create(making);
  list_.SetHwnd(HandleOf(Handle()));
  rowsChanged_ = list_.RowsChanged.Subscribe([this] { OnRowsChanged(); });
  changed_ = list_.Changed.Subscribe([this] {
    stale_ = true;
    follow_.Ask(Handle());
  });
  repaintWanted_ = list_.RepaintWanted.Subscribe([this] { ::InvalidateRect(Handle(), nullptr, FALSE); });
  Follow();
}

ResultListView::~ResultListView() {
  OnGone();
  Destroy();
}

/// The window goes; another may show the model meanwhile.
void ResultListView::OnGone() {
  rowsChanged_.Reset();
  changed_.Reset();
  repaintWanted_.Reset();
  follow_.Drop();
  if (accessible_) accessible_->Disconnect();
  accessible_.Reset();
  if (Handle() == nullptr || list_.hWnd() != HandleOf(Handle())) return;
  list_.SetHwnd(0);
  list_.SetHasFocus(false);
}

void ResultListView::MeasureFont() {
  const FontHandle font = MakeFont(list_.Font());
  const HDC screen = ::GetDC(nullptr);
  const HGDIOBJ before = ::SelectObject(screen, font.Get());
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(screen, &metrics);
  ::SelectObject(screen, before);
  ::ReleaseDC(nullptr, screen);
  rowHeight_ = std::max<int>(1, metrics.tmHeight + 2 * Padding());
  stepAcross_ = std::max<int>(1, metrics.tmAveCharWidth * kLettersOfStep);
}

SIZE ResultListView::Inside() const {
  RECT inside{};
  ::GetClientRect(Handle(), &inside);
  return {inside.right, inside.bottom};
}

int ResultListView::RowsOnScreen() const {
  return std::max<int>(1, Inside().cy / rowHeight_);
}

int ResultListView::RowAt(int x, int y) const {
  const SIZE inside = Inside();
  if (x < 0 || y < 0 || x >= inside.cx || y >= inside.cy) return -1;
  const int row = place_.row + y / rowHeight_;
  return row < list_.ListCount() ? row : -1;
}

RECT ResultListView::RectOf(int row) const {
  const LONG top = (row - place_.row) * rowHeight_;
  return {0, top, Inside().cx, top + rowHeight_};
}

bool ResultListView::Shows(int row) const {
  const RECT place = RectOf(row);
  return row >= 0 && row < list_.ListCount() && place.top >= 0 && place.top < Inside().cy;
}

// --- following the model ---

void ResultListView::OnRowsChanged() {
  if (list_.ListCount() <= shownCount_) stale_ = true;  // rows have gone, even if as many have come since
  follow_.Ask(Handle());
}

/// Rows that came in below the screen leave it as it is.
bool ResultListView::ScreenIsRight() const {
  return !stale_ && list_.ListIndex() == shownIndex_ && shownCount_ > place_.row + RowsOnScreen();
}

void ResultListView::Follow() {
  const bool right = ScreenIsRight();
  const bool chosen = list_.ListIndex() != shownIndex_;
  const bool rows = list_.ListCount() != shownCount_;
  stale_ = false;
  shownIndex_ = list_.ListIndex();
  shownCount_ = list_.ListCount();
  MeasureFont();
  UpdateScrollBars();
  if (chosen && shownIndex_ >= 0) Reveal(shownIndex_);
  if (!right) ::InvalidateRect(Handle(), nullptr, FALSE);
  TellReaders(rows, chosen);
}

void ResultListView::TellReaders(bool rows, bool chosen) const {
  if (rows) ::NotifyWinEvent(EVENT_OBJECT_REORDER, Handle(), OBJID_CLIENT, CHILDID_SELF);
  if (!chosen || shownIndex_ < 0) return;
  if (list_.HasFocus()) ::NotifyWinEvent(EVENT_OBJECT_FOCUS, Handle(), OBJID_CLIENT, shownIndex_ + 1);
  ::NotifyWinEvent(EVENT_OBJECT_SELECTION, Handle(), OBJID_CLIENT, shownIndex_ + 1);
}

void ResultListView::SetBar(int bar, int range, int page, int place) const {
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(0, range - 1);
  info.nPage = static_cast<UINT>(page);
  info.nPos = place;
  ::SetScrollInfo(Handle(), bar, &info, TRUE);
}

/// A bar that comes or goes changes the room inside, and this is called again from within.
void ResultListView::UpdateScrollBars() {
  SetBar(SB_VERT, list_.ListCount(), RowsOnScreen(), place_.row);
  SetBar(SB_HORZ, list_.HorizontalExtent(), Inside().cx, place_.across);
  ScrollTo(place_);
}

void ResultListView::ScrollTo(ListPlace place) {
  place.row = std::clamp(place.row, 0, std::max(0, list_.ListCount() - RowsOnScreen()));
  place.across = std::clamp<int>(place.across, 0, std::max<int>(0, list_.HorizontalExtent() - Inside().cx));
  if (place.row == place_.row && place.across == place_.across) return;
  place_ = place;
  ::SetScrollPos(Handle(), SB_VERT, place_.row, TRUE);
  ::SetScrollPos(Handle(), SB_HORZ, place_.across, TRUE);
  ::InvalidateRect(Handle(), nullptr, FALSE);
}

void ResultListView::Reveal(int row) {
  const int page = RowsOnScreen();
  if (row < place_.row) ScrollTo({row, place_.across});
  if (row >= place_.row + page) ScrollTo({row - page + 1, place_.across});
}

void ResultListView::Choose(int row) {
  list_.SetListIndex(std::clamp(row, -1, list_.ListCount() - 1));
  follow_.Now();
}

// --- drawing ---

void ResultListView::Paint() {
  const BufferedPaint paint(Handle());
  Draw(paint.Dc(), paint.Area());
}

void ResultListView::Draw(HDC dc, const RECT& part) {
  ::FillRect(dc, &part, ::GetSysColorBrush(COLOR_WINDOW));
  GdiCanvas canvas(dc);
  const int first = place_.row + std::max<int>(0, part.top) / rowHeight_;
  const int last = std::min<int>(list_.ListCount() - 1, place_.row + (part.bottom - 1) / rowHeight_);
  for (int row = first; row <= last; ++row) DrawRow(canvas, dc, row);
}

/// The owner draws its text at the top of what it is given; the room above and below is the window's.
void ResultListView::DrawRow(Canvas& canvas, HDC dc, int row) const {
  const RECT place = RectOf(row);
  const bool selected = row == list_.ListIndex();
  if (selected) ::FillRect(dc, &place, ::GetSysColorBrush(COLOR_HIGHLIGHT));
  const std::int32_t left = -place_.across;
  const std::int32_t right = std::max<std::int32_t>(place.right, list_.HorizontalExtent() + left);
  list_.DrawItem.Raise(row, canvas, selected, {left, place.top + Padding(), right, place.bottom - Padding()});
}

// --- what the user does ---

void ResultListView::OnPress(std::int16_t button, int x, int y) {
  if (::GetFocus() != Handle()) ::SetFocus(Handle());
  const int row = RowAt(x, y);
  if (button != forms::kMiddleButton && row >= 0) Choose(row);
  if (button == forms::kLeftButton) ::SetCapture(Handle());
  list_.MouseDown.Raise(button, HeldKeys(), static_cast<float>(x), static_cast<float>(y));
}

/// The window system tells of moves where there were none, whenever windows come and go under the mouse. With the left
/// button down the selection follows, beyond the edges too.
void ResultListView::OnHover(WPARAM keys, int x, int y) {
  POINT place{x, y};
  ::ClientToScreen(Handle(), &place);
  if (place.x == hover_.x && place.y == hover_.y) return;
  hover_ = place;
  if (::GetCapture() == Handle() && list_.ListCount() > 0) {
    const int row = place_.row + (y < 0 ? -1 : y / rowHeight_);
    Choose(std::clamp(row, 0, list_.ListCount() - 1));
  }
  TellForms(MonitorOfPointer());  // the preview beside the pointer ends there
  list_.MouseMove.Raise(ButtonsHeld(keys), HeldKeys(), static_cast<float>(x), static_cast<float>(y));
}

bool ResultListView::OnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK:
      OnPress(ButtonOf(message), MouseX(lParam), MouseY(lParam));
      return true;
    case WM_LBUTTONDBLCLK:
      list_.DblClick.Raise();
      return true;
    case WM_LBUTTONUP:
      if (::GetCapture() == Handle()) ::ReleaseCapture();
      return true;
    case WM_RBUTTONUP:  // would ask for a menu, which the press has opened
      return true;
    case WM_MOUSEMOVE:
      OnHover(wParam, MouseX(lParam), MouseY(lParam));
      return true;
    case WM_MOUSEWHEEL:
    case kWheelAcross:
      OnWheel(wParam, message == kWheelAcross || (wParam & MK_SHIFT) != 0);
      return true;
    default:
      return false;
  }
}

/// A turn forward leads up and to the left; the wheel that goes across counts the other way round.
void ResultListView::OnWheel(WPARAM wParam, bool across) {
  const int turn = static_cast<std::int16_t>(HIWORD(wParam));
  if ((turn < 0) != (wheel_ < 0)) wheel_ = 0;
  wheel_ += turn;
  const int notches = wheel_ / WHEEL_DELTA;
  wheel_ %= WHEEL_DELTA;
  if (across) {
    const bool shifted = (wParam & MK_SHIFT) != 0;
    ScrollTo({place_.row, place_.across + (shifted ? -notches : notches) * 3 * stepAcross_});
  } else {
    ScrollTo({place_.row - notches * LinesOfNotch(RowsOnScreen()), place_.across});
  }
}

void ResultListView::OnScroll(int bar, int action) {
  const bool down = bar == SB_VERT;
  const int step = down ? 1 : stepAcross_;
  const int page = down ? RowsOnScreen() : static_cast<int>(Inside().cx);
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = SIF_ALL;
  ::GetScrollInfo(Handle(), bar, &info);
  int place = down ? place_.row : place_.across;
  switch (action) {
    case SB_LINEUP:
      place -= step;
      break;
    case SB_LINEDOWN:
      place += step;
      break;
    case SB_PAGEUP:
      place -= page;
      break;
    case SB_PAGEDOWN:
      place += page;
      break;
    case SB_TOP:
      place = 0;
      break;
    case SB_BOTTOM:
      place = info.nMax;
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      place = info.nTrackPos;
      break;
    default:
      return;
  }
  ScrollTo(down ? ListPlace{place, place_.across} : ListPlace{place_.row, place});
}

/// The row that a key of movement leads to, which may lie after the last; -1 for any other key.
int ResultListView::RowByKey(int key) const {
  const int page = RowsOnScreen();
  const int now = list_.ListIndex();
  switch (key) {
    case VK_UP:
      return std::max(now - 1, 0);
    case VK_DOWN:
      return now + 1;
    case VK_PRIOR:
      return std::max(now - page, 0);
    case VK_NEXT:
      return std::max(now, 0) + page;
    case VK_HOME:
      return 0;
    case VK_END:
      return list_.ListCount();
    default:
      return -1;
  }
}

void ResultListView::OnKey(int key) {
  if (key == VK_TAB) return TabPressed.Raise();
  if (key == VK_LEFT || key == VK_RIGHT) {
    ScrollTo({place_.row, place_.across + (key == VK_LEFT ? -stepAcross_ : stepAcross_)});
  } else if (const int row = RowByKey(key); row >= 0 && list_.ListCount() > 0) {
    Choose(row);
  }
  list_.KeyDown.Raise(static_cast<std::int16_t>(key), HeldKeys());
}

void ResultListView::OnFocus(bool has) {
  list_.SetHasFocus(has);
  ::InvalidateRect(Handle(), nullptr, FALSE);
  if (!has) return;
  const LONG child = list_.ListIndex() >= 0 ? list_.ListIndex() + 1 : CHILDID_SELF;
  ::NotifyWinEvent(EVENT_OBJECT_FOCUS, Handle(), OBJID_CLIENT, child);
}

LRESULT ResultListView::Accessible(WPARAM wParam, LPARAM lParam) {
  // Some ask with 32 bits of the number, some with 64.
  if (static_cast<LONG>(lParam) != static_cast<LONG>(OBJID_CLIENT)) return Default(WM_GETOBJECT, wParam, lParam);
  if (!accessible_) accessible_ = com::MakeObject<ResultListAccessible>(*this);
  return ::LresultFromObject(IID_IAccessible, wParam, static_cast<IAccessible*>(accessible_.Get()));
}

LRESULT ResultListView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (OnMouse(message, wParam, lParam)) return 0;
  if (const auto answer = AnswerListMessage(*this, message, wParam, lParam)) return *answer;
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_PRINTCLIENT: {
      const SIZE inside = Inside();
      Draw(reinterpret_cast<HDC>(wParam), {0, 0, inside.cx, inside.cy});
      return 0;
    }
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      UpdateScrollBars();
      return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
      OnScroll(message == WM_VSCROLL ? SB_VERT : SB_HORZ, LOWORD(wParam));
      return 0;
    case WM_KEYDOWN:
      OnKey(static_cast<int>(wParam));
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTALLKEYS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      OnFocus(message == WM_SETFOCUS);
      return 0;
    case WM_TIMER:
      return follow_.Take(wParam) ? 0 : Default(message, wParam, lParam);
    case WM_GETOBJECT:
      return Accessible(wParam, lParam);
    case WM_NCDESTROY:
      OnGone();
      return Default(message, wParam, lParam);
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace quorvane::windows
