#pragma once

#include <QObject>

class QDockWidget;
class QMainWindow;

namespace quorvane::desktop {

/// Remembers how wide the user made a dock at the side of a window, and gives it that width again when a window that
/// was too narrow for it grows.
class DockWidth final : public QObject {
 public:
  /// Both outlive this.
  DockWidth(QMainWindow& window, QDockWidget& dock);

  /// The width that the dock has now counts as the user's, in pixels.
  void Note();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Restore();

  QMainWindow& window_;
  QDockWidget& dock_;
  int wanted_ = 0;       ///< pixels; 0: not known
  int windowWidth_ = 0;  ///< at the last look, in pixels
};

}  // namespace quorvane::desktop
