#include "desktop/controls/LinkView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "desktop/controls/ControlFollow.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/Label.h"

namespace quorvane::desktop {

LinkView::LinkView(forms::Label& label, QWidget* parent) : QLabel(parent), label_(label) {
  setFocusPolicy(Qt::TabFocus);
  setTextFormat(Qt::PlainText);
  setForegroundRole(QPalette::Link);
  QFont underlined = font();
  underlined.setUnderline(true);
  setFont(underlined);
  if (label_.HandPointer) setCursor(Qt::PointingHandCursor);
  changed_ = label_.Changed.Subscribe([this] { Follow(); });
  Follow();
}

void LinkView::Follow() {
  setText(ToQString(label_.Caption()));
  FollowControl(*this, label_);
}

void LinkView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) label_.Press();
}

void LinkView::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  QPen dots(palette().color(QPalette::Link), 1, Qt::DotLine);
  painter.setPen(dots);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void LinkView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    label_.Press();
  } else {
    QLabel::keyPressEvent(event);
  }
}

}  // namespace quorvane::desktop
