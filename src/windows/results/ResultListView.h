#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "base/Event.h"
#include "windows/com/ComPtr.h"
#include "windows/controls/Soon.h"
#include "windows/forms/Fonts.h"
#include "windows/forms/Window.h"

namespace quorvane::forms {
class OwnerDrawList;
}  // namespace quorvane::forms

namespace quorvane {
class Canvas;
}  // namespace quorvane

namespace quorvane::windows {

class ResultListAccessible;

/// The part of a list that shows: its first row, and the pixels scrolled across.
struct ListPlace {
  int row = 0;
  int across = 0;
};

/// The result list: a window of our own that draws the rows on the screen through their owner, whatever their number,
/// and scrolls in whole rows down and in pixels across. Selection by mouse and keys. It answers those messages of a
/// list box that read, places and rows in 32 bits, and screen readers by a ResultListAccessible.
class ResultListView final : public Window {
 public:
  /// Hidden in `parent`; shows the part at `place` when there is that much.
  ResultListView(std::shared_ptr<forms::OwnerDrawList> list, HWND parent, ListPlace place);
  ~ResultListView() override;

  forms::OwnerDrawList& Model() const { return list_; }
  ListPlace Place() const { return place_; }
  /// 0-based row under a point of the window, -1 for none.
  int RowAt(int x, int y) const;
  /// Where a row is, in the window, also when that is outside the part that shows.
  RECT RectOf(int row) const;
  bool Shows(int row) const;
  int RowsOnScreen() const;
  /// Selects the row and brings it on the screen, at once.
  void Choose(int row);
  /// What screen readers call the list, asked for when they ask.
  std::function<std::u16string()> Name;

  Event<> TabPressed;  ///< the focus wants to go on

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  bool OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
  void OnPress(std::int16_t button, int x, int y);
  void OnHover(WPARAM keys, int x, int y);
  void OnWheel(WPARAM wParam, bool across);
  void OnKey(int key);
  int RowByKey(int key) const;
  void OnFocus(bool has);
  void OnScroll(int bar, int action);
  LRESULT Accessible(WPARAM wParam, LPARAM lParam);
  void OnGone();

  void Paint();
  void Draw(HDC dc, const RECT& part);
  void DrawRow(Canvas& canvas, HDC dc, int row) const;

  void OnRowsChanged();
  void Follow();
  bool ScreenIsRight() const;
  void TellReaders(bool rows, bool chosen) const;
  void MeasureFont();
  void UpdateScrollBars();
  void SetBar(int bar, int range, int page, int place) const;
  void ScrollTo(ListPlace place);
  void Reveal(int row);
  SIZE Inside() const;

  const std::shared_ptr<forms::OwnerDrawList> kept_;
  forms::OwnerDrawList& list_;
  ListPlace place_;
  int rowHeight_ = 1;    ///< pixels
  int stepAcross_ = 1;   ///< pixels of one step to the side
  int shownIndex_ = -1;  ///< the selected row when the list was last followed
  int shownCount_ = 0;   ///< its rows then
  bool stale_ = true;    ///< since then something has changed that can be on the screen
  int wheel_ = 0;        ///< what is left of the wheel's turns, in its own unit
  POINT hover_{-1, -1};  ///< where the mouse was last, on the screen
  com::ComPtr<ResultListAccessible> accessible_;
  Soon follow_;
  Subscription rowsChanged_;
  Subscription changed_;
  Subscription repaintWanted_;
};

}  // namespace quorvane::windows
