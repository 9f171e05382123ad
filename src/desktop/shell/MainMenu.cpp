#include "desktop/shell/MainMenu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace quorvane::desktop {

MainMenu::MainMenu(QMainWindow& window, const Texts& texts) : window_(window), texts_(texts) {}

void MainMenu::Name(QAction& action, Text text) {
  actions_.emplace_back(&action, text);
  action.setText(texts_(text));
}

QMenu& MainMenu::AddMenu(Text text) {
  QMenu* menu = window_.menuBar()->addMenu(QString());
  Name(*menu->menuAction(), text);
  return *menu;
}

void MainMenu::AddMenu(Text text, QMenu& menu) {
  window_.menuBar()->addMenu(&menu);
  Name(*menu.menuAction(), text);
}

QMenu& MainMenu::AddMenu(QMenu& above, Text text) {
  QMenu* menu = above.addMenu(QString());
  Name(*menu->menuAction(), text);
  return *menu;
}

QAction& MainMenu::Add(QMenu& menu, Text text, const QKeySequence& keys, std::function<void()> run) {
  QAction* action = menu.addAction(QString());
  action->setShortcut(keys);
  QObject::connect(action, &QAction::triggered, &window_, [run = std::move(run)] { run(); });
  Name(*action, text);
  return *action;
}

QAction& MainMenu::AddCheck(QMenu& menu, Text text, std::function<void(bool)> run) {
  QAction* action = menu.addAction(QString());
  action->setCheckable(true);
  QObject::connect(action, &QAction::triggered, &window_, std::move(run));
  Name(*action, text);
  return *action;
}

void MainMenu::UpdateTexts() {
  for (const auto& [action, text] : actions_) action->setText(texts_(text));
}

QAction* MainMenu::Find(Text text) const {
  for (const auto& [action, name] : actions_) {
    if (name == text) return action;
  }
  return nullptr;
}

}  // namespace quorvane::desktop
