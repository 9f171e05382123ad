#include "desktop/controls/ScreenAt.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include "desktop/controls/Twips.h"
#include "platform/forms/Screen.h"

namespace quorvane::desktop {

const QScreen& ScreenAt(const QPoint& point, const QWidget& window) {
  const QScreen* screen = QGuiApplication::screenAt(point);
  return screen != nullptr ? *screen : *window.screen();
}

void TellForms(const QScreen& screen, const QWidget& window) {
  const QRect place = screen.geometry();
  forms::TheScreen() = {place.width(), place.height(), kTwipsOfInch / window.logicalDpiY(), place.left(), place.top()};
}

}  // namespace quorvane::desktop
