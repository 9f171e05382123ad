#pragma once

#include <memory>
#include <vector>

class QMainWindow;

namespace quorvane::workbench {
class ToolWindow;
}  // namespace quorvane::workbench

namespace quorvane::desktop {

class QtWindows;
class ToolDock;
class ViewFactory;

/// The docks of the add-ins' tool windows around the code.
class ToolDocks {
 public:
  /// All three outlive this; the window owns the docks.
  ToolDocks(QMainWindow& window, QtWindows& windows, const ViewFactory& views);

  ToolDock& Add(const std::shared_ptr<workbench::ToolWindow>& window);
  /// At once: what the view of its document reaches may be gone before the next turn of the loop. Nothing happens to a
  /// window that has no dock.
  void Remove(const workbench::ToolWindow& window);

  const std::vector<ToolDock*>& All() const { return docks_; }

 private:
  QMainWindow& window_;
  QtWindows& windows_;
  const ViewFactory& views_;
  std::vector<ToolDock*> docks_;
};

}  // namespace quorvane::desktop
