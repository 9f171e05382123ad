#pragma once

#include "base/Event.h"
#include "desktop/navigate/Bookmarks.h"
#include "desktop/navigate/Navigator.h"
#include "desktop/navigate/ProcedureBars.h"
#include "desktop/platform/Texts.h"

class QAction;
class QMenu;
class QWidget;

namespace quorvane::desktop {

class AddInsMenu;
class CodeArea;
class MainMenu;

/// The menu of the ways through the code, and what stands behind its entries.
class GoMenu {
 public:
  /// All outlive this; `window` is the parent of what asks.
  GoMenu(workbench::Workbench& workbench, CodeArea& code, const Texts& texts, QWidget& window);

  /// Once. `addIns` outlives this; its first entry opens the search.
  void AddTo(MainMenu& menu, AddInsMenu& addIns);
  void UpdateTexts() { bars_.UpdateTexts(); }
  /// Which entries can do something now.
  void UpdateActions();
  /// The entries that belong into the menu of the code too.
  void AddContext(QMenu& menu) const;

  Navigator& Ways() { return navigator_; }
  Bookmarks& Marks() { return bookmarks_; }
  ProcedureBars& Bars() { return bars_; }

  Event<const QString&> Told;  ///< a line for the status bar

 private:
  void AddBookmarks(MainMenu& menu, QMenu& go);
  void FindReferences();
  void StepBookmark(int step);

  CodeArea& code_;
  const Texts& texts_;
  Navigator navigator_;
  Bookmarks bookmarks_;
  ProcedureBars bars_;
  MainMenu* menu_ = nullptr;
  AddInsMenu* addIns_ = nullptr;
  Subscription told_, walked_;
};

}  // namespace quorvane::desktop
