#include "desktop/platform/ProgramStyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include "desktop/platform/Icons.h"

namespace quorvane::desktop {

namespace {

const QIcon& Cross() {
  static const QIcon icon = Icons::ByName(u"tab-close");
  return icon;
}

}  // namespace

QString ProgramStyle::NameOfCurrent() {
  const auto* own = dynamic_cast<const ProgramStyle*>(QApplication::style());
  return own != nullptr ? own->baseStyle()->objectName() : QApplication::style()->objectName();
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
  if (element != PE_IndicatorTabClose) return QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (option->state.testFlag(State_MouseOver) && option->state.testFlag(State_Enabled)) {
    QColor ground = option->palette.color(QPalette::WindowText);
    ground.setAlpha(option->state.testFlag(State_Sunken) ? 60 : 30);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ground);
    painter->drawRoundedRect(option->rect, 3, 3);
  }
  Cross().paint(painter, option->rect.adjusted(2, 2, -2, -2));
}

QIcon ProgramStyle::standardIcon(StandardPixmap standardIcon, const QStyleOption* option, const QWidget* widget) const {
  if (standardIcon == SP_TitleBarCloseButton) return Cross();
  return QProxyStyle::standardIcon(standardIcon, option, widget);
}

}  // namespace quorvane::desktop
