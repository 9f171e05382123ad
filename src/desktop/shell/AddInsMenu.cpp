#include "desktop/shell/AddInsMenu.h"

#include <utility>

#include "desktop/platform/Icons.h"
#include "desktop/platform/QtText.h"
#include "workbench/model/CommandButton.h"
#include "workbench/model/HostCommandBar.h"

namespace quorvane::desktop {

AddInsMenu::AddInsMenu(std::shared_ptr<workbench::HostCommandBar> bar, QWidget* parent)
    : QMenu(parent), bar_(std::move(bar)) {
  barChanged_ = bar_->Changed.Subscribe([this] { Rebuild(); });
  Rebuild();
}

AddInsMenu::~AddInsMenu() = default;

void AddInsMenu::RunFirst() {
  if (!isEmpty()) actions().constFirst()->trigger();
}

void AddInsMenu::ShowKeysOfFirst(const QString& keys) {
  keys_ = keys;
  const auto buttons = bar_->Buttons();
  if (offer_.isEmpty() && !isEmpty() && !buttons.empty()) Follow(*actions().constFirst(), *buttons.front());
}

void AddInsMenu::Offer(const QString& words, std::function<void()> start) {
  offer_ = words;
  start_ = std::move(start);
  Rebuild();
}

void AddInsMenu::Rebuild() {
  buttons_.clear();
  clear();
  if (!offer_.isEmpty()) {
    connect(addAction(Icons::Program(), offer_), &QAction::triggered, this, [start = start_] { start(); });
  }
  for (const auto& button : bar_->Buttons()) {
    QAction* action = addAction(Icons::Program(), QString());
    connect(action, &QAction::triggered, this, [button] { button->Click(); });
    Follow(*action, *button);
    buttons_.push_back(button->Changed.Subscribe([this, action, shown = button.get()] {
      Follow(*action, *shown);
      Changed.Raise();
    }));
  }
  menuAction()->setEnabled(!isEmpty());
  Changed.Raise();
}

void AddInsMenu::Follow(QAction& action, const workbench::CommandButton& button) {
  const bool first = offer_.isEmpty() && !actions().isEmpty() && actions().constFirst() == &action;
  action.setText(ToQString(button.Caption()) + (first && !keys_.isEmpty() ? QLatin1Char('\t') + keys_ : QString()));
  action.setVisible(button.Visible());
  action.setEnabled(button.Enabled());
}

}  // namespace quorvane::desktop
