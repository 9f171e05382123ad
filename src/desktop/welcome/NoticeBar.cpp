#include "desktop/welcome/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace quorvane::desktop {

namespace {

constexpr int kMostRows = 8;

}  // namespace

NoticeBar::NoticeBar(const Texts& texts, QWidget* parent)
    : QFrame(parent),
      texts_(texts),
      label_(new QLabel),
      list_(new QToolButton),
      close_(new QToolButton),
      lines_(new QListWidget) {
  setObjectName(QStringLiteral("NoticeBar"));
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
  auto* sign = new QLabel;
  const int size = fontMetrics().height();
  sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(size, size));
  label_->setTextFormat(Qt::PlainText);
  list_->setCheckable(true);
  list_->setAutoRaise(true);
  list_->setFocusPolicy(Qt::TabFocus);
  close_->setAutoRaise(true);
  close_->setFocusPolicy(Qt::TabFocus);
  close_->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
  lines_->setFrameShape(QFrame::NoFrame);
  lines_->setTextElideMode(Qt::ElideMiddle);
  lines_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  lines_->hide();
  connect(list_, &QToolButton::toggled, this, [this](bool shown) { ShowLines(shown); });
  connect(close_, &QToolButton::clicked, this, &QWidget::hide);

  auto* row = new QHBoxLayout;
  row->setContentsMargins(10, 4, 6, 4);
  row->setSpacing(8);
  row->addWidget(sign);
  row->addWidget(label_, 1);
  row->addWidget(list_);
  row->addWidget(close_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addLayout(row);
  layout->addWidget(lines_);
  hide();
}

void NoticeBar::Tell(Text text, const QStringList& lines) {
  text_ = text;
  told_ = lines;
  list_->setChecked(false);
  UpdateTexts();
  setVisible(!lines.isEmpty());
}

void NoticeBar::UpdateTexts() {
  label_->setText(texts_.Counted(text_, told_.size()));
  list_->setText(texts_(Text::NoticeList));
  close_->setToolTip(texts_(Text::NoticeClose));
  close_->setAccessibleName(texts_(Text::NoticeClose));
  lines_->setAccessibleName(label_->text());
  lines_->clear();
  for (const QString& line : std::as_const(told_)) {
    const QString words = texts_.Reason(line);
    lines_->addItem(words);
    lines_->item(lines_->count() - 1)->setToolTip(words);
  }
}

void NoticeBar::ShowLines(bool shown) {
  const int rows = static_cast<int>(std::min<qsizetype>(told_.size(), kMostRows));
  lines_->setFixedHeight(rows * std::max(1, lines_->sizeHintForRow(0)) + 2 * lines_->frameWidth() + 4);
  lines_->setVisible(shown);
  if (shown) lines_->setFocus();
}

}  // namespace quorvane::desktop
