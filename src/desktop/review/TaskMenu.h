#pragma once

#include <QCoreApplication>

#include "base/Event.h"
#include "desktop/platform/Texts.h"
#include "desktop/review/TaskHistory.h"

class QAction;
class QMenu;
class QWidget;

namespace quorvane::desktop {

/// The entries of a menu that take back what a whole task changed and do it again. Where modules were edited since, the
/// user is told which and asked first.
class TaskMenu {
 public:
  /// All three outlive this; `window` is the parent of the entries and the boxes.
  TaskMenu(TaskHistory& history, const Texts& texts, QWidget& window);

  void AddTo(QMenu& menu);
  void UpdateTexts();
  QAction& UndoEntry() { return *undo_; }
  QAction& RedoEntry() { return *redo_; }

 private:
  void Show(QAction& entry, const TaskHistory::Task* task, Text named, Text plain) const;
  void Run(bool undo);
  bool MayLeaveOut(const TaskHistory::ComponentList& edited, const TaskHistory::Task& task, bool undo) const;

  TaskHistory& history_;
  const Texts& texts_;
  QWidget& window_;
  QAction* undo_;
  QAction* redo_;
  Subscription changed_;
};

}  // namespace quorvane::desktop
