#include "desktop/results/TabCloseButton.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace quorvane::desktop {

TabCloseButton::TabCloseButton(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_Hover);
  resize(sizeHint());
  FollowLanguage();
}

void TabCloseButton::FollowLanguage() {
  setAccessibleName(tr("Close"));
}

void TabCloseButton::changeEvent(QEvent* event) {
  QAbstractButton::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) FollowLanguage();
}

QSize TabCloseButton::sizeHint() const {
  return {style()->pixelMetric(QStyle::PM_TabCloseIndicatorWidth, nullptr, this),
          style()->pixelMetric(QStyle::PM_TabCloseIndicatorHeight, nullptr, this)};
}

void TabCloseButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QStyleOption option;
  option.initFrom(this);
  if (isDown()) option.state |= QStyle::State_Sunken;
  style()->drawPrimitive(QStyle::PE_IndicatorTabClose, &option, &painter, this);
}

}  // namespace quorvane::desktop
