#include "desktop/review/TaskMenu.h"

#include <QAction>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/platform/QtText.h"
#include "workbench/model/Component.h"

namespace quorvane::desktop {

namespace {

constexpr qsizetype kMostNames = 10;

}  // namespace

TaskMenu::TaskMenu(TaskHistory& history, const Texts& texts, QWidget& window)
    : history_(history), texts_(texts), window_(window), undo_(new QAction(&window)), redo_(new QAction(&window)) {
  undo_->setShortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_Z));
  redo_->setShortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_Y));
  QObject::connect(undo_, &QAction::triggered, &window_, [this] { Run(true); });
  QObject::connect(redo_, &QAction::triggered, &window_, [this] { Run(false); });
  changed_ = history_.Changed.Subscribe([this] { UpdateTexts(); });
}

void TaskMenu::AddTo(QMenu& menu) {
  menu.addAction(undo_);
  menu.addAction(redo_);
  QObject::connect(&menu, &QMenu::aboutToShow, &window_, [this] { UpdateTexts(); });
}

void TaskMenu::UpdateTexts() {
  Show(*undo_, history_.LastDone(), Text::TaskUndo, Text::TaskUndoNone);
  Show(*redo_, history_.LastUndone(), Text::TaskRedo, Text::TaskRedoNone);
}

void TaskMenu::Show(QAction& entry, const TaskHistory::Task* task, Text named, Text plain) const {
  entry.setEnabled(task != nullptr);
  entry.setText(task == nullptr ? texts_(plain)
                                : texts_(named).arg(texts_.Counted(Text::ChangesLines, task->lines),
                                                    texts_.Counted(Text::ChangesModules,
                                                                   static_cast<qsizetype>(task->changes.size()))));
}

bool TaskMenu::MayLeaveOut(const TaskHistory::ComponentList& edited, const TaskHistory::Task& task, bool undo) const {
  QStringList names;
  for (const auto& component : edited) names << ToQString(component->FullName());
  if (names.size() > kMostNames) names = names.first(kMostNames) << QStringLiteral("\u2026");
  const bool any = edited.size() < task.changes.size();
  QMessageBox box(QMessageBox::Question, QStringLiteral("Quorvane"),
                  texts_.Counted(any ? Text::TaskEdited : Text::TaskAllEdited, static_cast<qsizetype>(edited.size())),
                  any ? QMessageBox::Yes | QMessageBox::Cancel : QMessageBox::Ok, &window_);
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(names.join(QLatin1Char('\n')));
  if (!any) {
    box.exec();
    return false;
  }
  box.button(QMessageBox::Yes)->setText(texts_(undo ? Text::TaskUndoRest : Text::TaskRedoRest));
  box.button(QMessageBox::Cancel)->setText(texts_(Text::CancelAnswer));
  box.setDefaultButton(QMessageBox::Cancel);
  return box.exec() == QMessageBox::Yes;
}

void TaskMenu::Run(bool undo) {
  const TaskHistory::Task* task = undo ? history_.LastDone() : history_.LastUndone();
  if (task == nullptr) return UpdateTexts();
  const auto edited = history_.EditedSince(*task, !undo);
  if (!edited.empty() && !MayLeaveOut(edited, *task, undo)) return;
  undo ? history_.Undo() : history_.Redo();
}

}  // namespace quorvane::desktop
