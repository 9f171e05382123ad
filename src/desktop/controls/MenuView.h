#pragma once

#include <QMenu>
#include <QPoint>
#include <optional>

#include "base/Event.h"

namespace quorvane::forms {
class Menu;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// Shows a menu whenever it pops up: at the mouse, or at a place that the keyboard chose. Each time its items are read
/// anew; the menu goes on living beside a running task.
class MenuView {
 public:
  /// `menu` and `owner` outlive this.
  MenuView(forms::Menu& menu, QWidget& owner);

  /// Pops the menu up there, in screen pixels, instead of at the mouse.
  void PopUpAt(const QPoint& place);

 private:
  void Show();

  forms::Menu& menu_;
  QMenu shown_;  ///< one for good: it is still at work when what was chosen waits for a modal window
  std::optional<QPoint> place_;
  Subscription popped_;
};

}  // namespace desktop
}  // namespace quorvane
