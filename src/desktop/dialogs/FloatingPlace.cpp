#include "desktop/dialogs/FloatingPlace.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <algorithm>

#include "desktop/controls/ScreenAt.h"
#include "desktop/results/ResultView.h"
#include "desktop/results/TabBarView.h"

namespace quorvane::desktop {

namespace {

constexpr int kEnough = 120;       // pixels of height in which some lines of code can be read
constexpr int kBelowPointer = 24;  // clear of the row that is pointed at

/// Of the results below the pointer.
int TabsTopAt(const QPoint& pointer, int otherwise) {
  for (QWidget* widget = QApplication::widgetAt(pointer); widget != nullptr; widget = widget->parentWidget()) {
    if (auto* results = dynamic_cast<ResultView*>(widget)) return results->Bar().mapToGlobal(QPoint(0, 0)).y();
  }
  return otherwise;
}

}  // namespace

QRect FloatingPlace::Of(const QRect& wanted, const QWidget& window) {
  const QPoint pointer = QCursor::pos();
  const QRect room = ScreenAt(pointer, window).availableGeometry();
  tabsTop_ = TabsTopAt(pointer, tabsTop_);
  int top = room.top();
  int bottom = room.top() + room.height();  // exclusive
  if (tabsTop_ > top && tabsTop_ < bottom) {
    const bool above = tabsTop_ - top >= std::min(wanted.height(), kEnough);
    (above ? bottom : top) = above ? std::min(tabsTop_, pointer.y()) : pointer.y() + kBelowPointer;
  }
  const int height = std::max(std::min(wanted.height(), bottom - top), 1);
  const int width = std::max(std::min(wanted.width(), room.width()), 1);
  const int y = wanted.y() + wanted.height() - height;
  return {std::clamp(wanted.x(), room.left(), room.left() + room.width() - width),
          std::clamp(y, top, std::max(top, bottom - height)), width, height};
}

bool FloatingPlace::IsInTheWay(const QWidget& window) {
  if (QApplication::activePopupWidget() != nullptr) return true;
  const QWidgetList all = QApplication::topLevelWidgets();
  return std::any_of(all.begin(), all.end(), [&window](const QWidget* other) {
    return other != &window && other->isVisible() && other->windowType() == Qt::Dialog &&
           other->frameGeometry().intersects(window.geometry());
  });
}

}  // namespace quorvane::desktop
