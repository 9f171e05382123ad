#pragma once

#include <QMenu>
#include <functional>
#include <memory>
#include <vector>

#include "base/Event.h"

namespace quorvane::workbench {
class CommandButton;
class HostCommandBar;
}  // namespace quorvane::workbench

namespace quorvane::desktop {

/// A menu that shows the buttons of one of the host's bars as they are.
class AddInsMenu final : public QMenu {
 public:
  AddInsMenu(std::shared_ptr<workbench::HostCommandBar> bar, QWidget* parent);
  ~AddInsMenu() override;

  /// Does what the first entry does; nothing without one.
  void RunFirst();
  /// Shown beside the first entry; empty for none. The add-in itself listens to the keys.
  void ShowKeysOfFirst(const QString& keys);

  /// An entry in front of the buttons that does `start`; with empty words none.
  void Offer(const QString& words, std::function<void()> start);

  Event<> Changed;  ///< a button came, went, or changed; as after a change of language

 private:
  void Rebuild();
  void Follow(QAction& action, const workbench::CommandButton& button);

  std::shared_ptr<workbench::HostCommandBar> bar_;
  QString keys_;
  QString offer_;
  std::function<void()> start_;
  std::vector<Subscription> buttons_;
  Subscription barChanged_;
};

}  // namespace quorvane::desktop
