// A dock that changes under the user's hand while its window keeps its width was changed by the user; one that does so
// together with the window was squeezed.

#include "desktop/shell/DockWidth.h"

#include <QApplication>
#include <QDockWidget>
#include <QEvent>
#include <QMainWindow>

namespace quorvane::desktop {

DockWidth::DockWidth(QMainWindow& window, QDockWidget& dock) : window_(window), dock_(dock) {
  window_.installEventFilter(this);
  dock_.installEventFilter(this);
}

void DockWidth::Note() {
  windowWidth_ = window_.width();
  if (dock_.isVisible() && !dock_.isFloating()) wanted_ = dock_.width();
}

bool DockWidth::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && window_.isVisible()) {
    const bool dragged = QApplication::mouseButtons().testFlag(Qt::LeftButton) && window_.width() == windowWidth_;
    if (watched == &dock_ && dragged) Note();
    // The layout has placed the docks before the window hears of its own size.
    if (watched == &window_) Restore();
  }
  return QObject::eventFilter(watched, event);
}

void DockWidth::Restore() {
  windowWidth_ = window_.width();
  if (!dock_.isVisible() || dock_.isFloating() || dock_.width() >= wanted_) return;
  window_.resizeDocks({&dock_}, {wanted_}, Qt::Horizontal);
}

}  // namespace quorvane::desktop
