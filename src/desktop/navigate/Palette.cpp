#include "desktop/navigate/Palette.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

#include "desktop/navigate/PalettePainter.h"

namespace quorvane::desktop {

namespace {

constexpr QSize kSize(560, 420);
constexpr int kMargin = 8;
constexpr int kBelowTop = 80;  // pixels

}  // namespace

Palette::Palette(const QString& title, std::vector<PaletteRows::Entry> entries, const Texts& texts, QWidget& parent)
    : QDialog(&parent),
      texts_(texts),
      line_(new QLineEdit),
      list_(new QListView),
      count_(new QLabel),
      rows_(new PaletteRows(std::move(entries), this)) {
  setWindowTitle(title);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kMargin);
  layout->addWidget(line_);
  layout->addWidget(list_, 1);
  layout->addWidget(count_);
  line_->setPlaceholderText(texts_(Text::PaletteHint));
  line_->setAccessibleName(texts_(Text::PaletteHint));
  line_->setClearButtonEnabled(true);
  line_->installEventFilter(this);
  list_->setModel(rows_);
  list_->setItemDelegate(new PalettePainter(list_));
  list_->setUniformItemSizes(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setAccessibleName(title);
  connect(line_, &QLineEdit::textChanged, this, [this] { Filter(); });
  connect(list_, &QListView::clicked, this, [this] { accept(); });
  resize(kSize);
  move(parent.mapToGlobal(QPoint((parent.width() - width()) / 2, kBelowTop)));
  Filter();
}

void Palette::Filter() {
  rows_->Choose(line_->text().remove(QLatin1Char(' ')));
  if (rows_->rowCount() > 0) list_->setCurrentIndex(rows_->index(0));
  count_->setText(texts_(Text::PaletteCount).arg(rows_->Fitting()).arg(rows_->CountOfAll()));
}

std::optional<std::size_t> Palette::Ask() {
  const bool chosen = exec() == QDialog::Accepted;
  const QModelIndex index = list_->currentIndex();
  if (!chosen || !index.isValid()) return std::nullopt;
  return rows_->EntryOf(index.row());
}

/// The keys that move in the list do so from the line too.
bool Palette::eventFilter(QObject* watched, QEvent* event) {
  if (watched != line_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (rows_->rowCount() > 0) accept();
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return QCoreApplication::sendEvent(list_, event);
    default:
      return QDialog::eventFilter(watched, event);
  }
}

}  // namespace quorvane::desktop
