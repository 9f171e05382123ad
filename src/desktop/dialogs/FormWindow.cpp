#include "desktop/dialogs/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMoveEvent>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "base/FlagScope.h"
#include "desktop/dialogs/ViewFactory.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/QtWindows.h"
#include "platform/forms/Dialog.h"

namespace quorvane::desktop {

namespace {

/// A form without a border floats above everything and leaves the focus where it is.
Qt::WindowFlags FlagsOf(const forms::Dialog* dialog) {
  if (dialog != nullptr && dialog->Border() == forms::FormBorder::None) {
    return Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus;
  }
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
         Qt::WindowSystemMenuHint;
}

}  // namespace

FormWindow::FormWindow(std::shared_ptr<forms::Form> form, const ViewFactory& views, QtWindows& windows, QWidget* owner)
    : QWidget(owner, FlagsOf(dynamic_cast<forms::Dialog*>(form.get()))),
      form_(std::move(form)),
      dialog_(dynamic_cast<forms::Dialog*>(form_.get())),
      windows_(windows),
      floats_(dialog_ != nullptr && dialog_->Border() == forms::FormBorder::None) {
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
  shownAgain_ = form_->ShownAgain.Subscribe([this] { ComeToFront(); });
  Follow();
}

/// The size of a form with a border is its view's choice.
void FormWindow::TellSize() {
  if (dialog_ == nullptr || floats_) return;
  const QSize size = layout()->sizeHint();
  if (size.width() == dialog_->Width() && size.height() == dialog_->Height()) return;
  const FlagScope busy(busy_);
  dialog_->SetSize(size.width(), size.height());
}

void FormWindow::Follow() {
  if (busy_) return;
  setWindowTitle(ToQString(form_->Caption()));
  if (dialog_ != nullptr) TakePlace();
  if (form_->Visible() == isVisible()) return;
  if (form_->Visible()) {
    Show();
  } else {
    hide();
  }
}

/// A form that floats may be larger than any screen, and a window of such a size costs memory without end.
void FormWindow::TakePlace() {
  QPoint place(dialog_->Left(), dialog_->Top());
  if (floats_) {
    // The form ends at the screen's edge; its window has room for the text and is moved in instead.
    const int least = focusProxy() != nullptr ? focusProxy()->sizeHint().width() : 0;
    const QRect free = floating_.Of({place, QSize(std::max(dialog_->Width(), least), dialog_->Height())}, *this);
    place = free.topLeft();
    setFixedSize(free.size());
  }
  // A frame that came after the window was placed shifts it in silence: the form's own place counts when it changes.
  if (!floats_ && place == followed_) return;
  followed_ = place;
  if (pos() != place) move(place);
  if (floats_ && isVisible() && FloatingPlace::IsInTheWay(*this)) hide();
}

/// A form that floats and was never filled has nothing to show, and any other would lie above a window that waits for
/// an answer, whoever asks; nor may it cover what the user works with.
void FormWindow::setVisible(bool visible) {
  const bool held =
      floats_ && visible &&
      (dialog_->Height() == 0 || QApplication::activeModalWidget() != nullptr || FloatingPlace::IsInTheWay(*this));
  QWidget::setVisible(visible && !held);
}

void FormWindow::Show() {
  if (floats_) return show();
  setWindowModality(form_->ShownModal() ? Qt::ApplicationModal : Qt::NonModal);
  create();
  if (QWidget* above = OwnerWindow(); above != nullptr && above->windowHandle() != nullptr) {
    windowHandle()->setTransientParent(above->windowHandle());
  }
  show();
  ComeToFront();
}

void FormWindow::ComeToFront() {
  if (floats_) return;
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
}

/// The window above which this one stays: that of the form's owner, else that in front.
QWidget* FormWindow::OwnerWindow() const {
  QWidget* owner = nullptr;
  if (const auto form = std::dynamic_pointer_cast<forms::Dialog>(form_->Owner()))
    owner = windows_.WidgetOf(form->hWnd());
  if (owner == nullptr) owner = form_->ShownModal() ? QApplication::activeWindow() : parentWidget();
  return owner != this ? owner : parentWidget();
}

void FormWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (dialog_ == nullptr || floats_ || !isVisible() || busy_) return;
  const FlagScope busy(busy_);
  followed_ = pos();
  dialog_->Move(pos().x(), pos().y());
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
