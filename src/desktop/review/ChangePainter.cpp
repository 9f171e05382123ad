#include "desktop/review/ChangePainter.h"

#include <QDir>
#include <QFontDatabase>
#include <QPainter>

#include "base/CommonEnds.h"
#include "desktop/platform/QtText.h"
#include "desktop/review/ChangeColors.h"
#include "desktop/review/ChangeRows.h"
#include "desktop/review/ModuleChanges.h"
#include "workbench/model/Component.h"

namespace quorvane::desktop {

namespace {

using Kind = ChangeRows::Kind;

constexpr int kMargin = 8;
constexpr int kDigits = 6;

QFont CodeFont(const QFont& font) {
  QFont code = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  code.setPointSizeF(font.pointSizeF());
  return code;
}

QString Expanded(QString text) {
  return text.replace(QLatin1Char('\t'), QLatin1String("    "));
}

}  // namespace

ChangePainter::ChangePainter(const ChangeRows& rows, const Texts& texts, QObject* parent)
    : QStyledItemDelegate(parent), rows_(rows), texts_(texts) {}

QRect ChangePainter::RevertPlace(const QRect& row, int number, const QFontMetrics& metrics) const {
  const Kind kind = rows_.At(number).kind;
  if (kind != Kind::Module && kind != Kind::Hunk) return {};
  const int width = metrics.horizontalAdvance(texts_(Text::ChangesPutBack)) + 2 * kMargin;
  return {row.right() - width, row.top(), width, row.height()};
}

QSize ChangePainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return {0, option.fontMetrics.height() + 4};
}

void ChangePainter::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  painter->save();
  const Kind kind = rows_.At(index.row()).kind;
  if (kind == Kind::Module || kind == Kind::Hunk) {
    PaintTitle(*painter, option, index);
  } else {
    PaintLine(*painter, option, index);
  }
  if (option.state.testFlag(QStyle::State_HasFocus) || option.state.testFlag(QStyle::State_Selected)) {
    painter->setPen(option.palette.color(QPalette::Highlight));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
  }
  painter->restore();
}

void ChangePainter::PaintTitle(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const ChangeRows::Row& row = rows_.At(index.row());
  const QPalette& palette = option.palette;
  const bool module = row.kind == Kind::Module;
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
  painter.fillRect(option.rect, palette.color(module ? QPalette::Window : QPalette::AlternateBase));
  QRect place = option.rect.adjusted(kMargin, 0, -kMargin, 0);
  QFont font = option.font;
  font.setBold(module);
  painter.setFont(font);
  painter.setPen(palette.color(module ? QPalette::WindowText : QPalette::PlaceholderText));
  if (module) {
    const QString arrow = rows_.IsFolded(row.module) ? QStringLiteral("\u25B8") : QStringLiteral("\u25BE");
    painter.drawText(place, Qt::AlignVCenter, arrow);
    place.setLeft(place.left() + 2 * kMargin);
  } else {
    place.setLeft(place.left() + 2 * kMargin);
  }
  const QString title = index.data().toString();
  painter.drawText(place, Qt::AlignVCenter, title);
  place.setLeft(place.left() + QFontMetrics(font).horizontalAdvance(title) + 2 * kMargin);
  painter.setFont(option.font);
  const QFontMetrics metrics(option.font);
  const QRect revert = RevertPlace(option.rect, index.row(), metrics);
  if (module) {
    const ChangeColors colors = ChangeColors::Of(palette);
    const ModuleChanges& changes = rows_.ModuleOf(row);
    const auto count = [&](const QString& text, const QColor& color) {
      painter.setPen(color);
      painter.drawText(place, Qt::AlignVCenter, text);
      place.setLeft(place.left() + metrics.horizontalAdvance(text) + kMargin);
    };
    count(QStringLiteral("+%1").arg(changes.Added()), colors.addedText);
    count(QStringLiteral("\u2212%1").arg(changes.Removed()), colors.removedText);
    place.setRight(revert.left() - kMargin);
    painter.setPen(palette.color(QPalette::PlaceholderText));
    const QString path = QDir::toNativeSeparators(
        QDir::cleanPath(QDir::current().absoluteFilePath(QString::fromStdString(changes.TheComponent()->Path()))));
    painter.drawText(place.adjusted(kMargin, 0, 0, 0), Qt::AlignVCenter,
                     metrics.elidedText(path, Qt::ElideMiddle, place.width() - kMargin));
  }
  if (!selected && !hovered) return;
  painter.fillRect(revert, palette.color(module ? QPalette::Window : QPalette::AlternateBase));
  painter.setPen(palette.color(QPalette::Link));
  painter.drawText(revert, Qt::AlignCenter, texts_(Text::ChangesPutBack));
}

void ChangePainter::PaintLine(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const ChangeRows::Row& row = rows_.At(index.row());
  const QPalette& palette = option.palette;
  const ChangeColors colors = ChangeColors::Of(palette);
  const bool removed = row.kind == Kind::Removed, added = row.kind == Kind::Added;
  painter.fillRect(option.rect, removed ? colors.removed : added ? colors.added : palette.color(QPalette::Base));
  const QFont font = CodeFont(option.font);
  const QFontMetrics metrics(font);
  painter.setFont(font);
  const int digit = metrics.horizontalAdvance(QLatin1Char('9'));
  QRect place = option.rect.adjusted(kMargin, 0, 0, 0);

  painter.setPen(removed ? colors.removedText : added ? colors.addedText : palette.color(QPalette::PlaceholderText));
  for (const std::int32_t line : {row.before, row.after}) {
    const QRect number(place.left(), place.top(), kDigits * digit, place.height());
    if (line >= 0) painter.drawText(number, Qt::AlignVCenter | Qt::AlignRight, QString::number(line + 1));
    place.setLeft(place.left() + kDigits * digit);
  }
  place.setLeft(place.left() + digit);
  painter.drawText(place, Qt::AlignVCenter,
                   removed ? QStringLiteral("\u2212")
                   : added ? QStringLiteral("+")
                           : QString());
  place.setLeft(place.left() + 2 * digit);

  const QString raw = index.data().toString();
  const QString line = Expanded(raw);
  QString partner;
  if (rows_.Partner(row, partner)) {
    const CommonEnds common = FindCommonEnds(raw.toStdU16String(), partner.toStdU16String());
    const auto upTo = [&](std::size_t units) {
      return metrics.horizontalAdvance(Expanded(raw.left(static_cast<qsizetype>(units))));
    };
    const int from = upTo(common.head), to = upTo(static_cast<std::size_t>(raw.size()) - common.tail);
    painter.fillRect(QRect(place.left() + from, place.top() + 1, to - from, place.height() - 2),
                     removed ? colors.removedPart : colors.addedPart);
  }
  const bool faint = row.kind == Kind::Hidden;
  painter.setPen(palette.color(faint ? QPalette::PlaceholderText : QPalette::Text));
  painter.drawText(place, Qt::AlignVCenter | Qt::TextSingleLine, line);
}

}  // namespace quorvane::desktop
