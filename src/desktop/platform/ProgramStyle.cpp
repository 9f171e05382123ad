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

bool IsDark(const QStyleOption& option) {
  return option.palette.color(QPalette::Window).lightness() < 128;
}

/// The style makes the page of a tab and the tab in front from the colour of buttons, made lighter: they would shine
/// out of dark windows.
template <class Option>
Option OnDarkGround(const Option& option) {
  Option darker(option);
  darker.palette.setColor(QPalette::Button, option.palette.color(QPalette::Window));
  return darker;
}

/// The style's own frame is a shadow, which nobody sees on dark ground. The option holds the title above the frame too.
void DrawDarkFrame(const QStyleOption& option, QPainter& painter) {
  QColor line = option.palette.color(QPalette::WindowText);
  line.setAlpha(50);
  const int title = option.fontMetrics.height() + 3;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(line);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect.adjusted(0, title, -1, -1)).translated(0.5, 0.5), 3, 3);
  painter.restore();
}

}  // namespace

QString ProgramStyle::NameOfCurrent() {
  const auto* own = dynamic_cast<const ProgramStyle*>(QApplication::style());
  return own != nullptr ? own->baseStyle()->objectName() : QApplication::style()->objectName();
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
  if (element == PE_FrameGroupBox && IsDark(*option)) return DrawDarkFrame(*option, *painter);
  if (const auto* page = qstyleoption_cast<const QStyleOptionTabWidgetFrame*>(option);
      page != nullptr && element == PE_FrameTabWidget && IsDark(*page)) {
    const QStyleOptionTabWidgetFrame darker = OnDarkGround(*page);
    return QProxyStyle::drawPrimitive(element, &darker, painter, widget);
  }
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

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  if (const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
      tab != nullptr && element == CE_TabBarTabShape && IsDark(*tab)) {
    const QStyleOptionTab darker = OnDarkGround(*tab);
    return QProxyStyle::drawControl(element, &darker, painter, widget);
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

/// No other button of the program has a picture.
int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* data) const {
  return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
}

QIcon ProgramStyle::standardIcon(StandardPixmap standardIcon, const QStyleOption* option, const QWidget* widget) const {
  if (standardIcon == SP_TitleBarCloseButton) return Cross();
  return QProxyStyle::standardIcon(standardIcon, option, widget);
}

}  // namespace quorvane::desktop
