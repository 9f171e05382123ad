#pragma once

#include <QDockWidget>
#include <memory>

#include "base/Event.h"

namespace quorvane::workbench {
class ToolWindow;
}

namespace quorvane::desktop {

class QtWindows;
class ViewFactory;

/// The dock of one tool window: shows its document, follows its caption and visibility, and hides it when the user
/// closes the dock. Its place is remembered under the identity that the add-in gave.
class ToolDock final : public QDockWidget {
 public:
  ToolDock(std::shared_ptr<workbench::ToolWindow> window, const ViewFactory& views, QtWindows& windows,
           QWidget* parent);
  ~ToolDock() override;

  /// Caption and visibility as the tool window has them.
  void Follow();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BringForward();

  std::shared_ptr<workbench::ToolWindow> window_;
  Subscription changed_;
  Subscription shownByProgram_;
};

}  // namespace quorvane::desktop
