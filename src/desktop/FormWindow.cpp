#include "desktop/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMoveEvent>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "desktop/QtText.h"
#include "desktop/QtWindows.h"
#include "desktop/ViewFactory.h"
#include "platform/forms/Dialog.h"

namespace quorvane::desktop {

namespace {

/// A form without a border floats above everything and leaves the focus where it is.
Qt::WindowFlags FlagsOf(const Dialog* dialog) {
  if (dialog != nullptr && dialog->Border() == FormBorder::None) {
    return Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus;
  }
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
         Qt::WindowSystemMenuHint;
}

}  // namespace

FormWindow::FormWindow(std::shared_ptr<Form> form, const ViewFactory& views, QtWindows& windows, QWidget* owner)
    : QWidget(owner, FlagsOf(dynamic_cast<Dialog*>(form.get()))),
      form_(std::move(form)),
      dialog_(dynamic_cast<Dialog*>(form_.get())),
      windows_(windows),
      floats_(dialog_ != nullptr && dialog_->Border() == FormBorder::None) {
  setObjectName(ToQString(form_->Name()));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  if (!floats_) layout->setSizeConstraint(QLayout::SetFixedSize);
  setAttribute(Qt::WA_ShowWithoutActivating, floats_);
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

/// The size of a form with a border is its view's choice.
void FormWindow::TellSize() {
  if (dialog_ == nullptr || floats_) return;
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
  if (floats_) setFixedSize(std::max(dialog_->Width(), 1), std::max(dialog_->Height(), 1));
  const bool wanted = form_->Visible() && !(floats_ && dialog_->Width() == 0);  // it was never filled
  if (wanted == isVisible()) return;
  if (wanted) {
    Show();
  } else {
    hide();
  }
}

void FormWindow::Show() {
  if (floats_) return show();
  setWindowModality(form_->ShownModal() ? Qt::ApplicationModal : Qt::NonModal);
  create();
  if (QWidget* above = OwnerWindow(); above != nullptr && above->windowHandle() != nullptr) {
    windowHandle()->setTransientParent(above->windowHandle());
  }
  show();
  raise();
  activateWindow();
}

/// The window above which this one stays: that of the form's owner, else that in front.
QWidget* FormWindow::OwnerWindow() const {
  QWidget* owner = nullptr;
  if (const auto form = std::dynamic_pointer_cast<Dialog>(form_->Owner())) owner = windows_.WidgetOf(form->hWnd());
  if (owner == nullptr) owner = form_->ShownModal() ? QApplication::activeWindow() : parentWidget();
  return owner != this ? owner : parentWidget();
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
