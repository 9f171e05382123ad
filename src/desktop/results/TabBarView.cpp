#include "desktop/results/TabBarView.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <algorithm>

#include "base/FlagScope.h"
#include "desktop/platform/Icons.h"
#include "desktop/platform/QtKeys.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/Texts.h"
#include "desktop/results/TabCloseButton.h"
#include "platform/forms/ImageList.h"
#include "platform/forms/MouseButton.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"

namespace quorvane::desktop {

namespace {

constexpr int kNarrowestTab = 130;  // pixels
constexpr int kWidestTab = 260;

/// An "&" of a search text marks nothing.
QString CaptionOf(const forms::Tab& tab) {
  return ToQString(tab.Caption()).trimmed().replace(QLatin1Char('&'), QLatin1String("&&"));
}

std::int16_t Shift(const QMouseEvent& event) {
  return static_cast<std::int16_t>(ShiftStateOf(event.modifiers()));
}

}  // namespace

TabBarView::TabBarView(forms::TabControl& control, QWidget* parent)
    : QTabBar(parent), control_(control), follow_([this] { Follow(); }) {
  setDocumentMode(true);
  setDrawBase(false);
  setExpanding(false);
  setElideMode(Qt::ElideRight);
  setUsesScrollButtons(true);
  setSelectionBehaviorOnRemove(QTabBar::SelectPreviousTab);
  connect(this, &QTabBar::currentChanged, this, [this](int index) {
    if (!busy_ && index >= 0) Select(shown_[static_cast<std::size_t>(index)]);
  });
  changed_ = control_.Changed.Subscribe([this] { follow_.Ask(); });
  Follow();
}

TabBarView::~TabBarView() = default;

void TabBarView::Follow() {
  const FlagScope busy(busy_);
  const std::vector<std::shared_ptr<forms::Tab>> tabs = control_.Tabs();
  for (std::size_t i = shown_.size(); i-- > 0;) {
    if (std::ranges::find(tabs, shown_[i]) != tabs.end()) continue;
    shown_.erase(shown_.begin() + static_cast<std::ptrdiff_t>(i));
    removeTab(static_cast<int>(i));
  }
  for (std::size_t i = 0; i < tabs.size(); ++i) {
    const int index = static_cast<int>(i);
    if (i >= shown_.size() || shown_[i] != tabs[i]) {
      shown_.insert(shown_.begin() + static_cast<std::ptrdiff_t>(i), tabs[i]);
      insertTab(index, QString());
    }
    FollowTab(index, *tabs[i]);
    if (tabs[i] == control_.SelectedTab()) setCurrentIndex(index);
  }
  setEnabled(control_.Enabled());
}

void TabBarView::FollowTab(int index, const forms::Tab& tab) {
  const QString caption = CaptionOf(tab);
  if (tabText(index) != caption) setTabText(index, caption);
  QStringList tip{ToQString(tab.Caption()).trimmed(), ToQString(tab.ToolTipText())};
  tip.removeAll(QString());
  setTabToolTip(index, tip.join(QLatin1Char('\n')));
  setAccessibleTabName(index, caption.isEmpty() ? Texts::OfAddIn()(Text::NewTab) : QString());
  const auto& images = control_.Images();
  const bool pictured =
      images && tab.IconIndex() >= 0 && static_cast<std::size_t>(tab.IconIndex()) < images->Images.size();
  if (pictured && tabIcon(index).isNull()) {
    setTabIcon(index, Icons::ByName(images->Images[static_cast<std::size_t>(tab.IconIndex())]));
  }
  FollowCloseButton(index, tab);
}

void TabBarView::FollowCloseButton(int index, const forms::Tab& tab) {
  QWidget* now = tabButton(index, QTabBar::RightSide);
  if (tab.CanClose() == (now != nullptr)) return;
  if (now != nullptr) {
    setTabButton(index, QTabBar::RightSide, nullptr);
    now->deleteLater();
    return;
  }
  auto* button = new TabCloseButton(this);
  const auto it = shown_[static_cast<std::size_t>(index)];
  connect(button, &QAbstractButton::clicked, this, [this, it] { control_.PressClose(it); });
  setTabButton(index, QTabBar::RightSide, button);
}

/// By key or wheel. The bar may still show what its control has taken off, or look enabled when that is not.
void TabBarView::Select(const std::shared_ptr<forms::Tab>& tab) {
  const auto& tabs = control_.Tabs();
  const std::shared_ptr<forms::Tab> held = tab;
  if (control_.Enabled() && std::ranges::find(tabs, held) != tabs.end()) held->Select();
  follow_.Ask();
}

void TabBarView::tabLayoutChange() {
  QTabBar::tabLayoutChange();
  LookAtRoom();
}

void TabBarView::resizeEvent(QResizeEvent* event) {
  QTabBar::resizeEvent(event);
  LookAtRoom();
}

/// The toolkit takes a tip for markup that looks like such, and a screen reader reads it as it is.
bool TabBarView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTabBar::event(event);
  const auto& asked = static_cast<const QHelpEvent&>(*event);
  const QString tip = tabToolTip(tabAt(asked.pos())).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
  QToolTip::showText(asked.globalPos(), tip, this);
  return true;
}

void TabBarView::changeEvent(QEvent* event) {
  QTabBar::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) follow_.Ask();
}

/// The tab behind all others scrolls out of sight with them: there a button beside the bar takes its place.
void TabBarView::LookAtRoom() {
  int needed = 0;
  for (int i = 0; i < count(); ++i) needed += minimumTabSizeHint(i).width();
  const bool crowded = needed > width();
  if (crowded == crowded_) return;
  crowded_ = crowded;
  CrowdedChanged.Raise();
}

void TabBarView::PressLast() {
  if (!shown_.empty()) control_.PressTab(shown_.back(), forms::kLeftButton, 0, 0, 0);
}

QIcon TabBarView::IconOfLast() const {
  return count() > 0 ? tabIcon(count() - 1) : QIcon();
}

QSize TabBarView::tabSizeHint(int index) const {
  return QTabBar::tabSizeHint(index).boundedTo({kWidestTab, QWIDGETSIZE_MAX});
}

/// Tabs that would get narrower than this scroll instead.
QSize TabBarView::minimumTabSizeHint(int index) const {
  return tabSizeHint(index).boundedTo({kNarrowestTab, QWIDGETSIZE_MAX});
}

std::shared_ptr<forms::Tab> TabBarView::TabUnder(const QMouseEvent& event) const {
  const int index = tabAt(event.position().toPoint());
  return index >= 0 ? shown_[static_cast<std::size_t>(index)] : nullptr;
}

/// The bar itself selects nothing: the control does.
void TabBarView::mousePressEvent(QMouseEvent* event) {
  const std::int16_t button = MouseButtonOf(event->button());
  if (button == 0) return;
  const auto tab = TabUnder(*event);
  if (button == forms::kLeftButton) pressed_ = tab;
  const auto x = static_cast<float>(event->position().x());
  const auto y = static_cast<float>(event->position().y());
  if (tab) {
    if (button == forms::kRightButton && tab->CanClose()) Select(tab);  // the menu speaks of the selected tab
    control_.PressTab(tab, button, Shift(*event), x, y);
  } else {
    control_.PressBar(button, Shift(*event), x, y);
  }
}

void TabBarView::mouseReleaseEvent(QMouseEvent*) {}

/// The second press of two counts as a double click only where the first one hit the same tab: the tab under the mouse
/// may be one that the first press has made. With another button it is a press again.
void TabBarView::mouseDoubleClickEvent(QMouseEvent* event) {
  follow_.Now();
  const auto tab = TabUnder(*event);
  if (event->button() == Qt::LeftButton && tab && tab == pressed_.lock()) {
    control_.DoubleClickTab(tab);
  } else if (event->button() != Qt::LeftButton) {
    mousePressEvent(event);
  }
}

}  // namespace quorvane::desktop
