#include "desktop/shell/ToolDocks.h"

#include <QMainWindow>
#include <algorithm>

#include "desktop/platform/QtWindows.h"
#include "desktop/shell/ToolDock.h"
#include "workbench/model/ToolWindow.h"

namespace quorvane::desktop {

namespace {

constexpr int kFirstHeight = 230;

}  // namespace

ToolDocks::ToolDocks(QMainWindow& window, QtWindows& windows, const ViewFactory& views)
    : window_(window), windows_(windows), views_(views) {}

ToolDock& ToolDocks::Add(const std::shared_ptr<workbench::ToolWindow>& window) {
  auto* dock = new ToolDock(window, views_, windows_, &window_);
  window_.addDockWidget(Qt::BottomDockWidgetArea, dock);
  window_.resizeDocks({dock}, {kFirstHeight}, Qt::Vertical);
  dock->setVisible(window->Visible());
  docks_.push_back(dock);
  return *dock;
}

void ToolDocks::Remove(const workbench::ToolWindow& window) {
  const auto found = std::ranges::find(docks_, windows_.WidgetOf(window.Handle()));
  if (found == docks_.end()) return;
  const std::unique_ptr<ToolDock> gone(*found);
  docks_.erase(found);
}

}  // namespace quorvane::desktop
