#include "desktop/navigate/PalettePainter.h"

#include <QApplication>
#include <QPainter>
#include <algorithm>

#include "desktop/navigate/PaletteRows.h"

namespace quorvane::desktop {

namespace {

constexpr int kMargin = 8;
constexpr int kGap = 16;

}  // namespace

void PalettePainter::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  initStyleOption(&row, index);
  row.text.clear();
  const QStyle& style = *(row.widget != nullptr ? row.widget->style() : QApplication::style());
  style.drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
  const bool chosen = row.state.testFlag(QStyle::State_Selected);
  const QRect place = row.rect.adjusted(kMargin, 0, -kMargin, 0);
  const QString name = index.data(Qt::DisplayRole).toString();
  const QString detail = index.data(PaletteRows::DetailRole).toString();
  painter->setFont(row.font);
  painter->setPen(row.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
  const int nameWidth = std::min(row.fontMetrics.horizontalAdvance(name), place.width());
  painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                    row.fontMetrics.elidedText(name, Qt::ElideMiddle, place.width()));
  const int rest = place.width() - nameWidth - kGap;
  if (rest <= 0) return;
  painter->setPen(row.palette.color(chosen ? QPalette::HighlightedText : QPalette::PlaceholderText));
  painter->drawText(place, Qt::AlignRight | Qt::AlignVCenter,
                    row.fontMetrics.elidedText(detail, Qt::ElideMiddle, rest));
}

QSize PalettePainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return {0, option.fontMetrics.height() + kMargin};
}

}  // namespace quorvane::desktop
