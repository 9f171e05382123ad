#include "desktop/results/ResultView.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "addin/results/ResultDialog.h"
#include "desktop/controls/StatusLabel.h"
#include "desktop/controls/Twips.h"
#include "desktop/platform/QtKeys.h"
#include "desktop/platform/QtWindows.h"
#include "desktop/platform/Texts.h"
#include "desktop/results/ResultListView.h"
#include "desktop/results/TabBarView.h"
#include "platform/forms/Label.h"
#include "platform/forms/OwnerDrawList.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/TabControl.h"

namespace quorvane::desktop {

ResultView::ResultView(ResultDialog& document, QtWindows& windows, QWidget* parent)
    : QWidget(parent),
      document_(document),
      windows_(windows),
      resultMenu_(document.mnuResultOption, *this),
      tabMenu_(document.mnuTabOption, *this),
      bar_(new TabBarView(*document.vbalDTabControl1, this)),
      add_(new QToolButton(this)),
      pages_(new QWidget(this)),
      fit_([this] { FitPanels(); }) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addLayout(MakeHead());
  layout->addWidget(pages_, 1);
  pages_->installEventFilter(this);
  setMinimumHeight(90);
  document_.SetHwnd(windows_.HandleOf(*this));
  subscriptions_.push_back(document_.Controls().Added.Subscribe([this](forms::Control& control) { Add(control); }));
  subscriptions_.push_back(
      document_.Controls().Removed.Subscribe([this](forms::Control& control) { Remove(control); }));
  for (const auto& control : document_.Controls().All()) Add(*control);
}

ResultView::~ResultView() = default;

QLayout* ResultView::MakeHead() {
  auto* head = new QHBoxLayout;
  head->setSpacing(0);
  head->addWidget(bar_, 1);
  add_->setAutoRaise(true);
  add_->setFocusPolicy(Qt::NoFocus);
  head->addWidget(add_);
  connect(add_, &QToolButton::clicked, this, [this] { bar_->PressLast(); });
  const auto follow = [this] {
    add_->setIcon(bar_->IconOfLast());
    add_->setVisible(bar_->Crowded());
  };
  subscriptions_.push_back(bar_->CrowdedChanged.Subscribe(follow));
  follow();
  NameAdd();
  return head;
}

void ResultView::NameAdd() {
  add_->setToolTip(Texts::OfAddIn()(Text::NewTab));
  add_->setAccessibleName(add_->toolTip());
}

void ResultView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) NameAdd();
}

void ResultView::Add(const forms::Control& control) {
  auto shown = std::make_unique<Shown>();
  shown->control = document_.Controls().Item(control.Name());
  Shown& entry = *shown;
  entry.changed = entry.control->Changed.Subscribe([this, &entry] { Follow(entry); });
  shown_[&control] = std::move(shown);
  Follow(entry);
}

/// The control may go from inside one of its widget's own events.
void ResultView::Remove(const forms::Control& control) {
  const auto found = shown_.find(&control);
  if (found == shown_.end()) return;
  QWidget* widget = found->second->widget;
  shown_.erase(found);
  if (widget == nullptr) return;
  widget->hide();
  widget->setParent(this);
  widget->deleteLater();
}

QWidget* ResultView::WidgetOf(const forms::Control* control) const {
  const auto found = shown_.find(control);
  return found != shown_.end() ? found->second->widget : nullptr;
}

QWidget* ResultView::Make(const std::shared_ptr<forms::Control>& control) {
  if (dynamic_cast<forms::PictureBox*>(control.get()) != nullptr) return new QWidget(pages_);
  QWidget* container = WidgetOf(control->Container().get());
  if (container == nullptr) return nullptr;
  if (auto list = std::dynamic_pointer_cast<forms::OwnerDrawList>(control)) {
    return new ResultListView(std::move(list), windows_, container);
  }
  if (auto label = std::dynamic_pointer_cast<forms::Label>(control))
    return new StatusLabel(std::move(label), container);
  return nullptr;
}

void ResultView::Follow(Shown& shown) {
  if (shown.widget == nullptr) {
    shown.widget = Make(shown.control);
    if (shown.widget == nullptr) return;
    if (shown.widget->parentWidget() == pages_) fit_.Ask();  // whoever places what lies in it may not listen yet
  }
  const forms::Control& control = *shown.control;
  QWidget& widget = *shown.widget;
  if (widget.parentWidget() != pages_) {
    const QRect place = PlaceOf(control, widget);
    if (widget.geometry() != place) widget.setGeometry(place);
  }
  if (widget.isEnabled() != control.Enabled()) widget.setEnabled(control.Enabled());
  if (widget.isHidden() == control.Visible()) {
    widget.setVisible(control.Visible());
    FollowFocus();
  }
}

/// As the page has put it, but that the status line has the height of its font, and the list makes room for it.
QRect ResultView::PlaceOf(const forms::Control& control, const QWidget& widget) const {
  QRect place(PixelsOf(control.Left(), widget), PixelsOf(control.Top(), widget), PixelsOf(control.Width(), widget),
              PixelsOf(control.Height(), widget));
  const int line = StatusLabel::HeightOf(*pages_);
  if (dynamic_cast<const StatusLabel*>(&widget) != nullptr) place.setHeight(std::max(place.height(), line));
  if (dynamic_cast<const ResultListView*>(&widget) != nullptr) place.setTop(std::max(place.top(), line));
  return place;
}

void ResultView::FitPanels() {
  for (const auto& [control, shown] : shown_) {
    if (shown->widget == nullptr || shown->widget->parentWidget() != pages_) continue;
    shown->widget->setGeometry(pages_->rect());
    shown->control->Move(0, TwipsOf(bar_->height(), *this), TwipsOf(pages_->width(), *this),
                         TwipsOf(pages_->height(), *this));
  }
}

ResultListView* ResultView::CurrentList() const {
  for (const auto& [control, shown] : shown_) {
    auto* list = dynamic_cast<ResultListView*>(shown->widget);
    if (list != nullptr && !list->isHidden() && !list->parentWidget()->isHidden()) return list;
  }
  return nullptr;
}

/// Focus begins in the list, and comes to the list of another tab with that.
void ResultView::FollowFocus() {
  ResultListView* list = CurrentList();
  const bool inside = isAncestorOf(window()->focusWidget());
  setFocusProxy(list != nullptr ? static_cast<QWidget*>(list) : bar_);
  if (inside && list != nullptr && !bar_->hasFocus()) list->setFocus();
}

void ResultView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (wasShown_) return;
  wasShown_ = true;
  document_.Show();
}

void ResultView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  document_.Resize(TwipsOf(width(), *this), TwipsOf(height(), *this));
}

bool ResultView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == pages_ && event->type() == QEvent::Resize) FitPanels();
  return QWidget::eventFilter(watched, event);
}

/// A key that no control took.
void ResultView::keyPressEvent(QKeyEvent* event) {
  const std::int32_t code = VirtualKeyOf(*event);
  if (code == 0) return QWidget::keyPressEvent(event);
  document_.KeyDown(static_cast<std::int16_t>(code), static_cast<std::int16_t>(ShiftStateOf(event->modifiers())));
}

/// The menu key; the mouse has its own way.
void ResultView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Keyboard) return;
  if (bar_->hasFocus()) {
    tabMenu_.PopUpAt(bar_->mapToGlobal(bar_->tabRect(bar_->currentIndex()).bottomLeft()));
  } else if (ResultListView* list = CurrentList()) {
    const QRect row = list->RectOf(list->Model().ListIndex());
    const QPoint place = row.isNull() ? QPoint(0, 0) : QPoint(list->fontMetrics().height(), row.bottom() + 1);
    resultMenu_.PopUpAt(list->viewport()->mapToGlobal(place));
  }
}

}  // namespace quorvane::desktop
