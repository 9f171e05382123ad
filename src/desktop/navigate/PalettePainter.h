#pragma once

#include <QStyledItemDelegate>

namespace quorvane::desktop {

/// Draws a row of a palette: the name, and at the right in a quieter colour where it is.
class PalettePainter final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace quorvane::desktop
