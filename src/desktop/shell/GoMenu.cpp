#include "desktop/shell/GoMenu.h"

#include <QAction>
#include <QMenu>

#include "desktop/editor/CodeArea.h"
#include "desktop/navigate/ReferenceSearch.h"
#include "desktop/shell/AddInsMenu.h"
#include "desktop/shell/MainMenu.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

GoMenu::GoMenu(workbench::Workbench& workbench, CodeArea& code, const Texts& texts, QWidget& window)
    : code_(code),
      texts_(texts),
      navigator_(workbench, code, texts, window),
      bookmarks_(workbench, code),
      bars_(code, texts) {
  told_ = navigator_.Told.Subscribe([this](const QString& line) { Told.Raise(line); });
  walked_ = navigator_.History().Changed.Subscribe([this] { UpdateActions(); });
}

void GoMenu::AddTo(MainMenu& menu, AddInsMenu& addIns) {
  menu_ = &menu;
  addIns_ = &addIns;
  QMenu& go = menu.AddMenu(Text::MenuGo);
  menu.Add(go, Text::GoDefinition, QKeySequence(Qt::SHIFT | Qt::Key_F2), [this] { navigator_.ToDefinition(); });
  menu.Add(go, Text::GoReferences, QKeySequence(Qt::Key_F12), [this] { FindReferences(); });
  go.addSeparator();
  QAction& back = menu.Add(go, Text::GoBack, QKeySequence(), [this] { navigator_.History().Back(); });
  back.setShortcuts({QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F2)});
  menu.Add(go, Text::GoForward, QKeySequence(Qt::ALT | Qt::Key_Right), [this] { navigator_.History().Forward(); });
  go.addSeparator();
  menu.Add(go, Text::GoProcedure, QKeySequence(Qt::CTRL | Qt::Key_T), [this] { navigator_.AskProcedure(); });
  menu.Add(go, Text::GoNextProcedure, QKeySequence(Qt::CTRL | Qt::Key_Down), [this] { navigator_.StepProcedure(1); });
  menu.Add(go, Text::GoPreviousProcedure, QKeySequence(Qt::CTRL | Qt::Key_Up),
           [this] { navigator_.StepProcedure(-1); });
  menu.Add(go, Text::GoObjects, QKeySequence(Qt::CTRL | Qt::Key_F2), [this] { bars_.OpenObjects(); });
  go.addSeparator();
  AddBookmarks(menu, go);
}

void GoMenu::AddBookmarks(MainMenu& menu, QMenu& go) {
  menu.Add(go, Text::GoBookmark, QKeySequence(Qt::CTRL | Qt::Key_B), [this] { bookmarks_.Toggle(); });
  menu.Add(go, Text::GoNextBookmark, QKeySequence(Qt::ALT | Qt::Key_PageDown), [this] { StepBookmark(1); });
  menu.Add(go, Text::GoPreviousBookmark, QKeySequence(Qt::ALT | Qt::Key_PageUp), [this] { StepBookmark(-1); });
}

void GoMenu::UpdateActions() {
  if (menu_ == nullptr) return;
  const bool code = code_.Current() != nullptr;
  for (const Text text : {Text::GoDefinition, Text::GoReferences, Text::GoNextProcedure, Text::GoPreviousProcedure,
                          Text::GoObjects, Text::GoBookmark}) {
    menu_->Find(text)->setEnabled(code);
  }
  menu_->Find(Text::GoBack)->setEnabled(navigator_.History().CanBack());
  menu_->Find(Text::GoForward)->setEnabled(navigator_.History().CanForward());
}

void GoMenu::AddContext(QMenu& menu) const {
  menu.addAction(menu_->Find(Text::GoDefinition));
  menu.addAction(menu_->Find(Text::GoReferences));
  menu.addAction(menu_->Find(Text::GoBookmark));
}

void GoMenu::FindReferences() {
  const QString name = navigator_.TakeName();
  if (name.isEmpty()) return;
  addIns_->RunFirst();
  FillReferenceSearch(name);
}

void GoMenu::StepBookmark(int step) {
  if (!bookmarks_.Step(step)) Told.Raise(texts_(Text::BookmarkNone));
}

}  // namespace quorvane::desktop
