#pragma once

#include <QRect>

class QWidget;

namespace quorvane::desktop {

/// Where a window that floats beside the pointer may lie without being in the way. All in pixels of the screen.
class FloatingPlace {
 public:
  /// The place for a window that shall lie at `wanted`: on the pointer's screen and no larger than that, above the tabs
  /// of the results that the pointer is over, or below the pointer where too little is left above them. What does not
  /// fit of a high one is cut off.
  QRect Of(const QRect& wanted, const QWidget& window);

  /// Whether `window` would cover an open menu or another window of this program that has a frame and belongs to the
  /// main window, such as the search dialog.
  static bool IsInTheWay(const QWidget& window);

 private:
  int tabsTop_ = 0;  ///< of the results that the pointer was last over; 0: none yet
};

}  // namespace quorvane::desktop
