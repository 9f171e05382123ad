#pragma once

#include "desktop/platform/Theme.h"

class QMainWindow;
class QSettings;

namespace quorvane::desktop {

class CodeArea;

/// What the main window remembers from one run to the next: its place and that of its docks, how code is shown, and the
/// look.
class WindowLayout {
 public:
  /// All three outlive this.
  WindowLayout(QSettings& settings, QMainWindow& window, CodeArea& code);

  void Restore();
  void Save();

  /// Remembered at once.
  void SetTheme(Theme::Choice choice);
  const Theme& TheTheme() const { return theme_; }

 private:
  QSettings& settings_;
  QMainWindow& window_;
  CodeArea& code_;
  Theme theme_;
};

}  // namespace quorvane::desktop
