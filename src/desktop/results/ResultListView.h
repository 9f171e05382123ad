#pragma once

#include <QAbstractScrollArea>
#include <memory>

#include "base/Event.h"
#include "desktop/controls/Later.h"

namespace quorvane::forms {
class OwnerDrawList;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

class QtWindows;

/// The result list: draws the rows on the screen through their owner, whatever their number, and scrolls in whole rows
/// down and in pixels across. Selection by mouse and keys.
class ResultListView final : public QAbstractScrollArea {
 public:
  /// `windows` outlives this.
  ResultListView(std::shared_ptr<forms::OwnerDrawList> list, QtWindows& windows, QWidget* parent);
  ~ResultListView() override;

  /// 0-based row under a point of the viewport, -1 for none.
  int RowAt(int x, int y) const;
  void FollowDesktop();
  /// Where a row is drawn, in the viewport; empty for one that is not on the screen.
  QRect RectOf(int row) const;
  int RowHeight() const;
  const forms::OwnerDrawList& Model() const { return list_; }
  /// Puts the text of the selected row on the clipboard; without one the clipboard keeps what it has.
  void CopySelected() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  void Follow();
  void UpdateScrollBars();
  void Reveal(int row);
  int RowsOnScreen() const;
  /// The row that a key of movement leads to; -1 for any other key.
  int RowByKey(int key) const;
  int Answer(std::uint32_t message, std::int32_t lParam) const;

  const std::shared_ptr<forms::OwnerDrawList> kept_;
  forms::OwnerDrawList& list_;
  int shownIndex_ = -1;  ///< the selected row when the list was last followed
  Later follow_;
  Subscription rowsChanged_;
  Subscription changed_;
  Subscription repaintWanted_;
};

}  // namespace desktop
}  // namespace quorvane
