#include "desktop/FormWindow.h"

#include <QCloseEvent>
#include <QMoveEvent>
#include <QVBoxLayout>
#include <utility>

#include "desktop/QtText.h"
#include "desktop/QtWindows.h"
#include "desktop/ViewFactory.h"
#include "platform/forms/Dialog.h"

namespace quorvane::desktop {

FormWindow::FormWindow(std::shared_ptr<Form> form, const ViewFactory& views, QtWindows& windows, QWidget* owner)
    : QWidget(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                         Qt::WindowSystemMenuHint),
      form_(std::move(form)),
      dialog_(dynamic_cast<Dialog*>(form_.get())) {
  setObjectName(ToQString(form_->Name()));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  if (dialog_ != nullptr) dialog_->SetWindow(windows.HandleOf(*this));
  if (QWidget* view = views.MakeView(*form_, this)) {
    layout->addWidget(view);
    setFocusProxy(view);
  }
  layout->activate();
  TellSize();
  changed_ = form_->Changed.Subscribe([this] { Follow(); });
  Follow();
}

void FormWindow::TellSize() {
  if (dialog_ == nullptr) return;
  const QSize size = layout()->sizeHint();
  if (size.width() == dialog_->Width() && size.height() == dialog_->Height()) return;
  busy_ = true;
  dialog_->SetSize(size.width(), size.height());
  busy_ = false;
}

void FormWindow::Follow() {
  if (busy_) return;
  setWindowTitle(ToQString(form_->Caption()));
  if (dialog_ != nullptr && pos() != QPoint(dialog_->Left(), dialog_->Top())) {
    move(dialog_->Left(), dialog_->Top());
  }
  if (form_->Visible() == isVisible()) return;
  if (form_->Visible()) {
    setWindowModality(form_->ShownModal() ? Qt::ApplicationModal : Qt::NonModal);
    show();
    activateWindow();
  } else {
    hide();
  }
}

void FormWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (dialog_ == nullptr || !isVisible() || busy_) return;
  busy_ = true;
  dialog_->Move(pos().x(), pos().y());
  busy_ = false;
}

bool FormWindow::event(QEvent* event) {
  const bool done = QWidget::event(event);
  if (event->type() == QEvent::LayoutRequest) TellSize();
  return done;
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  form_->CloseByUser();
}

}  // namespace quorvane::desktop
