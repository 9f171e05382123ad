#include "desktop/editor/CodeWindow.h"

#include <QCloseEvent>
#include <QVBoxLayout>
#include <utility>

#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/PaneBinding.h"
#include "desktop/platform/Icons.h"
#include "desktop/platform/QtText.h"
#include "workbench/model/Component.h"
#include "workbench/model/HostWindow.h"
#include "workbench/model/Module.h"
#include "workbench/model/Pane.h"

namespace quorvane::desktop {

using workbench::HostWindow;

CodeWindow::CodeWindow(std::shared_ptr<workbench::Pane> pane, workbench::TurnClock& turns, const CodePage& page)
    : pane_(std::move(pane)),
      editor_(new CodeEdit(std::dynamic_pointer_cast<workbench::Module>(pane_->CodeModule()), turns)),
      binding_(std::make_unique<PaneBinding>(pane_, *editor_, page)) {
  setAttribute(Qt::WA_DeleteOnClose);
  auto* body = new QWidget;
  auto* layout = new QVBoxLayout(body);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(editor_, 1);
  body->setFocusProxy(editor_);
  setWidget(body);
  setFocusProxy(editor_);
  if (const auto component = TheComponent()) setWindowIcon(Icons::Component(component->Type()));
  textChanged_ = editor_->TheModule()->Changed.Subscribe([this] { UpdateTitle(); });
  connect(this, &QMdiSubWindow::windowStateChanged, this, [this](Qt::WindowStates, Qt::WindowStates now) {
    pane_->TheWindow()->SetWindowState(now.testFlag(Qt::WindowMaximized)   ? HostWindow::kMaximized
                                       : now.testFlag(Qt::WindowMinimized) ? HostWindow::kMinimized
                                                                           : HostWindow::kNormal);
  });
  UpdateTitle();
}

CodeWindow::~CodeWindow() = default;

void CodeWindow::SetHeader(QWidget& header) {
  header_ = &header;
  static_cast<QVBoxLayout*>(widget()->layout())->insertWidget(0, header_);
}

std::shared_ptr<workbench::Component> CodeWindow::TheComponent() const {
  return std::dynamic_pointer_cast<workbench::Component>(editor_->TheModule()->Parent());
}

void CodeWindow::UpdateTitle() {
  if (const auto component = TheComponent()) {
    setWindowTitle(ToQString(component->FullName()) + QLatin1String("[*]"));
    editor_->setAccessibleName(ToQString(component->FullName()));
    setToolTip(QString::fromStdString(component->Path()));
  }
  setWindowModified(editor_->TheModule()->Modified());
}

void CodeWindow::FollowState() {
  const std::int32_t state = pane_->TheWindow()->WindowState();
  if (state == HostWindow::kMaximized && !isMaximized()) showMaximized();
  if (state == HostWindow::kMinimized && !isMinimized()) showMinimized();
  if (state == HostWindow::kNormal && (isMaximized() || isMinimized())) showNormal();
}

void CodeWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  pane_->TheWindow()->SetVisible(false);
}

}  // namespace quorvane::desktop
