#pragma once

#include <QKeySequence>
#include <functional>
#include <utility>
#include <vector>

#include "desktop/platform/Texts.h"

class QAction;
class QMainWindow;
class QMenu;

namespace quorvane::desktop {

/// The menus of the main window: their entries with keys and words, which follow the language.
class MainMenu {
 public:
  /// Both outlive this.
  MainMenu(QMainWindow& window, const Texts& texts);

  QMenu& AddMenu(Text text);
  /// Puts a menu that somebody else made on the bar.
  void AddMenu(Text text, QMenu& menu);
  QMenu& AddMenu(QMenu& above, Text text);
  QAction& Add(QMenu& menu, Text text, const QKeySequence& keys, std::function<void()> run);
  /// One that is checked or not; `run` gets which.
  QAction& AddCheck(QMenu& menu, Text text, std::function<void(bool)> run);

  /// The words in the language of the moment.
  void UpdateTexts();

  /// Null when there is none with these words.
  QAction* Find(Text text) const;

 private:
  void Name(QAction& action, Text text);

  QMainWindow& window_;
  const Texts& texts_;
  std::vector<std::pair<QAction*, Text>> actions_;
};

}  // namespace quorvane::desktop
