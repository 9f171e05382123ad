#include "desktop/shell/ToolDock.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <utility>

#include "desktop/dialogs/ViewFactory.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/QtWindows.h"
#include "workbench/model/ToolWindow.h"

namespace quorvane::desktop {

ToolDock::ToolDock(std::shared_ptr<workbench::ToolWindow> window, const ViewFactory& views, QtWindows& windows,
                   QWidget* parent)
    : QDockWidget(parent), window_(std::move(window)) {
  setObjectName(ToQString(window_->GuidPosition()));
  if (QWidget* view = views.MakeView(*window_->TheDocument(), this)) {
    setWidget(view);
    setFocusProxy(view);
  }
  windows.Bind(window_->Handle(), *this);
  connect(toggleViewAction(), &QAction::triggered, this, [this](bool shown) { window_->SetVisible(shown); });
  changed_ = window_->Changed.Subscribe([this] { Follow(); });
  shownByProgram_ = window_->Shown.Subscribe([this] { BringForward(); });
  Follow();
}

/// The view goes before its document.
ToolDock::~ToolDock() {
  delete widget();
}

void ToolDock::Follow() {
  setWindowTitle(ToQString(window_->Caption()));
  const bool shown = window_->Visible();
  if (shown == !isHidden()) return;
  setVisible(shown);
}

/// Before other docks on its place, and with the focus, unless the user is in another window, such as a dialog.
void ToolDock::BringForward() {
  raise();
  if (QApplication::activeWindow() == window() && focusProxy() != nullptr) focusProxy()->setFocus();
}

void ToolDock::closeEvent(QCloseEvent* event) {
  QDockWidget::closeEvent(event);
  if (event->isAccepted()) window_->SetVisible(false);
}

}  // namespace quorvane::desktop
