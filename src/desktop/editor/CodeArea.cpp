#include "desktop/editor/CodeArea.h"

#include <QFontDatabase>
#include <QPainter>
#include <QTabBar>
#include <algorithm>
#include <utility>

#include "base/FlagScope.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/CodeWindow.h"
#include "desktop/platform/QtWindows.h"
#include "desktop/platform/Texts.h"
#include "platform/CodePage.h"
#include "workbench/model/Desk.h"
#include "workbench/model/HostWindow.h"
#include "workbench/model/Pane.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

using workbench::Pane;

CodeArea::CodeArea(workbench::Workbench& workbench, QtWindows& windows, const Texts& texts)
    : workbench_(workbench), windows_(windows), texts_(texts), textSize_(NormalTextSize()) {
  setDocumentMode(true);
  setTabsClosable(true);
  setTabsMovable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setAcceptDrops(false);  // files are for the main window
  SetTabs(true);
  connect(this, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) { Activated(window); });
  paneChanged_ = workbench_.ActivePaneChanged.Subscribe([this] { Sync(); });
  projectsChanged_ = workbench_.ProjectsChanged.Subscribe([this] { Sync(); });
  broughtForward_ = windows_.BroughtForward.Subscribe([this](WindowHandle handle) { Reveal(handle); });
}

CodeArea::~CodeArea() {
  syncing_ = true;  // windows that go choose no other
  for (CodeWindow* window : CodeWindows()) delete window;
}

int CodeArea::NormalTextSize() {
  return std::max(10, QFontDatabase::systemFont(QFontDatabase::FixedFont).pointSize());
}

void CodeArea::SetTabs(bool tabs) {
  setViewMode(tabs ? TabbedView : SubWindowView);
  if (!tabs) return;
  if (auto* bar = findChild<QTabBar*>()) {
    bar->setExpanding(false);
    bar->setElideMode(Qt::ElideMiddle);
  }
}

void CodeArea::SetTextSize(int size) {
  textSize_ = size;
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSize(size);
  for (CodeWindow* window : CodeWindows()) window->Editor().setFont(font);
}

std::vector<CodeWindow*> CodeArea::CodeWindows() const {
  std::vector<CodeWindow*> windows;
  for (QMdiSubWindow* window : subWindowList()) {
    if (auto* code = dynamic_cast<CodeWindow*>(window)) windows.push_back(code);
  }
  return windows;
}

CodeWindow* CodeArea::Current() const {
  return dynamic_cast<CodeWindow*>(currentSubWindow());
}

CodeWindow* CodeArea::WindowOf(const Pane& pane) const {
  for (CodeWindow* window : CodeWindows()) {
    if (window->ThePane().get() == &pane) return window;
  }
  return nullptr;
}

void CodeArea::Sync() {
  if (syncing_) return;
  CodeWindow* front = FollowPanes();
  if (front != nullptr && isActiveWindow()) front->Editor().setFocus();
  viewport()->update();
  CurrentChanged.Raise();
}

/// Makes the windows those of the visible panes, and the active pane's the one in front; gives that one.
CodeWindow* CodeArea::FollowPanes() {
  const FlagScope syncing(syncing_);
  const auto panes = workbench_.TheDesk()->Panes();
  std::erase_if(watched_, [&](const auto& entry) {
    return std::ranges::find(panes, entry.first, &std::shared_ptr<Pane>::get) == panes.end();
  });
  for (CodeWindow* window : CodeWindows()) {
    const bool open = std::ranges::find(panes, window->ThePane()) != panes.end();
    if (open && window->ThePane()->TheWindow()->Visible()) continue;
    removeSubWindow(window);
    window->deleteLater();
  }
  for (const auto& pane : panes) {
    Watch(pane);
    if (pane->TheWindow()->Visible() && WindowOf(*pane) == nullptr) Open(pane);
  }
  const auto active = workbench_.TheDesk()->ActivePane();
  CodeWindow* front = active ? WindowOf(*active) : nullptr;
  if (front != nullptr && activeSubWindow() != front) setActiveSubWindow(front);
  return front;
}

void CodeArea::Watch(const std::shared_ptr<Pane>& pane) {
  if (watched_.contains(pane.get())) return;
  Pane* watched = pane.get();
  watched_[watched] = pane->TheWindow()->Changed.Subscribe([this, watched] { FollowPane(*watched); });
}

void CodeArea::FollowPane(Pane& pane) {
  CodeWindow* window = WindowOf(pane);
  if ((window != nullptr) != pane.TheWindow()->Visible()) return Sync();
  if (window != nullptr && !HasTabs()) window->FollowState();
}

CodeWindow* CodeArea::Open(const std::shared_ptr<Pane>& pane) {
  auto* window = new CodeWindow(pane, workbench_.Turns(), workbench_.ThePage());
  CodeEdit& editor = window->Editor();
  connect(&editor, &QPlainTextEdit::cursorPositionChanged, this, [this] { CurrentChanged.Raise(); });
  connect(&editor, &QPlainTextEdit::selectionChanged, this, [this] { CurrentChanged.Raise(); });
  window->Hold(editor.MenuWanted.Subscribe([this](const QPoint& place) { MenuWanted.Raise(place); }));
  window->Hold(editor.Zoomed.Subscribe([this](int size) { SetTextSize(size); }));

  const bool maximized = HasTabs() || (activeSubWindow() != nullptr && activeSubWindow()->isMaximized());
  Opened.Raise(*window);
  addSubWindow(window);
  SetTextSize(textSize_);
  windows_.Bind(pane->TheWindow()->Handle(), *window);
  if (maximized) {
    window->showMaximized();
  } else {
    window->resize(viewport()->width() * 3 / 4, viewport()->height() * 3 / 4);
    window->show();
    window->FollowState();
  }
  return window;
}

void CodeArea::Activated(QMdiSubWindow* window) {
  if (syncing_) return;
  if (auto* code = dynamic_cast<CodeWindow*>(window)) {
    if (code->ThePane()->TheWindow()->Visible()) code->ThePane()->Show();
  }
  CurrentChanged.Raise();
}

void CodeArea::Reveal(WindowHandle handle) {
  for (CodeWindow* window : CodeWindows()) {
    if (window->ThePane()->TheWindow()->Handle() != handle) continue;
    window->Editor().Reveal();
    window->Editor().setFocus();
  }
}

void CodeArea::UpdateTitles() {
  for (CodeWindow* window : CodeWindows()) window->UpdateTitle();
}

void CodeArea::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), palette().color(QPalette::Window).darker(104));
  if (!subWindowList().isEmpty()) return;
  const bool open = !workbench_.Projects().empty();
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 1.5);
  painter.setFont(large);
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect upper = viewport()->rect().adjusted(0, 0, 0, -viewport()->height() / 2 - 4);
  painter.drawText(upper, Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap,
                   texts_(open ? Text::HintOpen : Text::Hint));
  painter.setFont(font());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  const QRect lower = viewport()->rect().adjusted(0, viewport()->height() / 2 + 8, 0, 0);
  painter.drawText(lower, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                   texts_(open ? Text::HintSearch : Text::HintMore));
}

}  // namespace quorvane::desktop
