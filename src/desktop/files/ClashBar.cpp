#include "desktop/files/ClashBar.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

#include "desktop/files/DiskChanges.h"
#include "workbench/model/Component.h"

namespace quorvane::desktop {

ClashBar::ClashBar(DiskChanges& disk, const Texts& texts)
    : disk_(disk),
      texts_(texts),
      label_(new QLabel),
      compare_(new QToolButton),
      reload_(new QToolButton),
      keep_(new QToolButton) {
  setObjectName(QStringLiteral("ClashBar"));
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
  auto* sign = new QLabel;
  const int size = fontMetrics().height();
  sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size, size));
  label_->setTextFormat(Qt::PlainText);
  label_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(10, 4, 6, 4);
  row->setSpacing(8);
  row->addWidget(sign);
  row->addWidget(label_, 1);
  for (QToolButton* button : {compare_, reload_, keep_}) {
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    row->addWidget(button);
  }
  const auto settle = [this](QToolButton* button, DiskChanges::Answer answer) {
    connect(button, &QToolButton::clicked, this, [this, answer] {
      if (!disk_.Clashes().empty()) disk_.Settle(disk_.Clashes().front(), answer);
    });
  };
  settle(reload_, DiskChanges::Answer::Reload);
  settle(keep_, DiskChanges::Answer::Keep);
  connect(compare_, &QToolButton::clicked, this, [this] {
    if (!disk_.Clashes().empty()) disk_.Compare(disk_.Clashes().front());
  });
  changed_ = disk_.ClashesChanged.Subscribe([this] { Follow(); });
  Follow();
}

void ClashBar::UpdateTexts() {
  compare_->setText(texts_(Text::ClashShow));
  reload_->setText(texts_(Text::ReloadAnswer));
  keep_->setText(texts_(Text::KeepAnswer));
  Follow();
}

void ClashBar::Follow() {
  const auto& clashes = disk_.Clashes();
  if (!clashes.empty()) {
    QString words = texts_(Text::Clash).arg(QDir::toNativeSeparators(QString::fromStdString(clashes.front()->Path())));
    if (clashes.size() > 1) words += QStringLiteral("  (1 / %1)").arg(clashes.size());
    label_->setText(words);
    label_->setToolTip(words);
  }
  setVisible(!clashes.empty());
}

}  // namespace quorvane::desktop
