#pragma once

#include <QStyledItemDelegate>

#include "desktop/platform/Texts.h"

namespace quorvane::desktop {

class ChangeRows;

/// Draws the rows of changes: line numbers of before and after, a sign, and the line with the part that differs in a
/// stronger colour. Heads of modules and hunks end with a place to click that puts them back.
class ChangePainter final : public QStyledItemDelegate {
 public:
  /// Both outlive this.
  ChangePainter(const ChangeRows& rows, const Texts& texts, QObject* parent);

  /// Where a click on a row's rectangle means "put back"; empty for rows without that.
  QRect RevertPlace(const QRect& row, int number, const QFontMetrics& metrics) const;
  /// One line high; as wide as the list.
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  void PaintTitle(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
  void PaintLine(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

  const ChangeRows& rows_;
  const Texts& texts_;
};

}  // namespace quorvane::desktop
