#include <QActionGroup>
#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <array>
#include <functional>

#include "desktop/editor/CodeArea.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/CodeWindow.h"
#include "desktop/files/FileCommands.h"
#include "desktop/navigate/MatchMarks.h"
#include "desktop/platform/Icons.h"
#include "desktop/results/ResultListView.h"
#include "desktop/review/ChangesView.h"
#include "desktop/shell/AddInsMenu.h"
#include "desktop/shell/EncodingMenu.h"
#include "desktop/shell/GoMenu.h"
#include "desktop/shell/MainWindow.h"
#include "workbench/model/Component.h"
#include "workbench/model/Pane.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

namespace {

/// What the menu does is done by the widget that has the focus, be it the code or a line of text.
void ToFocus(const char* slot) {
  QWidget* const widget = QApplication::focusWidget();
  if (widget == nullptr) return;
  if (widget->metaObject()->indexOfMethod(QByteArray(slot).append("()").constData()) < 0) return;
  QMetaObject::invokeMethod(widget, slot);
}

void Copy() {
  if (const auto* list = dynamic_cast<ResultListView*>(QApplication::focusWidget())) return list->CopySelected();
  ToFocus("copy");
}

QString RecentLabel(int number, const QStringList& files) {
  QString label = QDir::toNativeSeparators(files.constFirst());
  label.replace(QLatin1Char('&'), QLatin1String("&&"));
  if (files.size() > 1) label += QStringLiteral(" +%1").arg(files.size() - 1);
  return number < 10 ? QStringLiteral("&%1  %2").arg(number).arg(label) : label;
}

}  // namespace

void MainWindow::BuildFileMenu() {
  QMenu& menu = menu_.AddMenu(Text::MenuFile);
  menu_.Add(menu, Text::FileOpen, QKeySequence::Open, [this] { OpenFiles(files_->AskForFiles()); });
  menu_.Add(menu, Text::FileAdd, QKeySequence(), [this] {
    if (files_->Add(files_->AskForFiles())) recent_.Add(files_->OpenFiles());
  });
  recentMenu_ = &menu_.AddMenu(menu, Text::FileRecent);
  connect(recentMenu_, &QMenu::aboutToShow, this, [this] { FillRecent(); });
  menu.addSeparator();
  BuildEncodingMenu(menu);
  menu_.Add(menu, Text::FileSave, QKeySequence::Save, [this] {
    CodeWindow* window = code_->Current();
    if (window != nullptr && window->TheComponent()) files_->Save(*window->TheComponent());
  });
  menu_.Add(menu, Text::FileSaveAll, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] { files_->SaveAll(); });
  menu.addSeparator();
  menu_.Add(menu, Text::FileClose, QKeySequence(), [this] { files_->CloseAll(); });
  menu_.Add(menu, Text::FileExit, QKeySequence(Qt::ALT | Qt::Key_F4), [this] { close(); });
}

void MainWindow::BuildEncodingMenu(QMenu& above) {
  QMenu& menu = menu_.AddMenu(above, Text::FileEncoding);
  const auto add = [&](Text words, const std::function<EncodingScope(EncodingScope)>& of) {
    QMenu& pages = menu_.AddMenu(menu, words);
    connect(&pages, &QMenu::aboutToShow, this,
            [this, &pages, of] { FillEncodingMenu(pages, of(CurrentModule()), *files_, texts_); });
    return pages.menuAction();
  };
  QAction* module = add(Text::EncodingModule, [](const EncodingScope& now) { return now; });
  QAction* project = add(Text::EncodingProject, [this](const EncodingScope& now) {
    return EncodingScope{now.project ? now.project : ActiveProject(), nullptr};
  });
  QAction* group = add(Text::EncodingGroup, [](const EncodingScope&) { return EncodingScope{}; });
  connect(&menu, &QMenu::aboutToShow, this, [this, module, project, group] {
    module->setEnabled(CurrentModule().component != nullptr);
    project->setEnabled(!workbench_.Projects().empty());
    group->setEnabled(!workbench_.Projects().empty());
  });
}

void MainWindow::BuildEditMenu() {
  QMenu& menu = menu_.AddMenu(Text::MenuEdit);
  editMenu_ = &menu;
  menu_.Add(menu, Text::EditUndo, QKeySequence::Undo, [this] {
    if (CodeEdit* editor = CurrentEditor()) editor->Undo();
  });
  QAction& redo = menu_.Add(menu, Text::EditRedo, QKeySequence(), [this] {
    if (CodeEdit* editor = CurrentEditor()) editor->Redo();
  });
  redo.setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
  taskMenu_.AddTo(menu);
  menu.addSeparator();
  menu_.Add(menu, Text::EditCut, QKeySequence::Cut, [] { ToFocus("cut"); });
  menu_.Add(menu, Text::EditCopy, QKeySequence::Copy, Copy);
  menu_.Add(menu, Text::EditPaste, QKeySequence::Paste, [] { ToFocus("paste"); });
  menu_.Add(menu, Text::EditSelectAll, QKeySequence::SelectAll, [] { ToFocus("selectAll"); });
  menu.addSeparator();
  QAction& find = menu_.Add(menu, Text::EditFind, QKeySequence(), [this] { addIns_->RunFirst(); });
  find.setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_F), QKeySequence(Qt::CTRL | Qt::Key_H)});
  menu_.Add(menu, Text::EditNextMatch, QKeySequence(Qt::Key_F4), [this] { matches_->Step(1); });
  menu_.Add(menu, Text::EditPreviousMatch, QKeySequence(Qt::SHIFT | Qt::Key_F4), [this] { matches_->Step(-1); });
  menu_.Add(menu, Text::EditGoToLine, QKeySequence(Qt::CTRL | Qt::Key_G), [this] { GoToLine(); });
}

void MainWindow::BuildViewMenu() {
  QMenu& menu = menu_.AddMenu(Text::MenuView);
  viewMenu_ = &menu;
  menu.addAction(treeDock_->toggleViewAction());
  menu.addAction(changesDock_->toggleViewAction());
  changesDock_->toggleViewAction()->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R));
  connect(changesDock_->toggleViewAction(), &QAction::triggered, this, [this](bool shown) {
    if (!shown) return;
    changesDock_->raise();
    changes_->setFocus();
  });
  QAction& tabs = menu_.AddCheck(menu, Text::ViewTabs, [this](bool wanted) { code_->SetTabs(wanted); });
  menu.addSeparator();
  QMenu& theme = menu_.AddMenu(menu, Text::ViewTheme);
  auto* choices = new QActionGroup(this);
  constexpr std::array kChoices = {std::pair(Text::ThemeSystem, Theme::Choice::System),
                                   std::pair(Text::ThemeLight, Theme::Choice::Light),
                                   std::pair(Text::ThemeDark, Theme::Choice::Dark)};
  for (const auto& [text, choice] : kChoices) {
    choices->addAction(&menu_.AddCheck(theme, text, [this, chosen = choice](bool) { layout_.SetTheme(chosen); }));
  }
  menu.addSeparator();
  menu_.Add(menu, Text::ViewLarger, QKeySequence::ZoomIn, [this] { code_->SetTextSize(code_->TextSize() + 1); });
  menu_.Add(menu, Text::ViewSmaller, QKeySequence::ZoomOut,
            [this] { code_->SetTextSize(std::max(6, code_->TextSize() - 1)); });
  menu_.Add(menu, Text::ViewNormalSize, QKeySequence(Qt::CTRL | Qt::Key_0),
            [this] { code_->SetTextSize(CodeArea::NormalTextSize()); });
  connect(&menu, &QMenu::aboutToShow, this, [this, &tabs, choices, kChoices] {
    tabs.setChecked(code_->HasTabs());
    for (std::size_t i = 0; i < kChoices.size(); ++i) {
      choices->actions()[static_cast<qsizetype>(i)]->setChecked(kChoices[i].second == layout_.TheTheme().Current());
    }
  });
}

void MainWindow::BuildWindowMenu() {
  QMenu& menu = menu_.AddMenu(Text::MenuWindow);
  windowMenu_ = &menu;
  menu_.Add(menu, Text::WindowTile, QKeySequence(), [this] {
    code_->SetTabs(false);
    code_->tileSubWindows();
  });
  menu_.Add(menu, Text::WindowCascade, QKeySequence(), [this] {
    code_->SetTabs(false);
    code_->cascadeSubWindows();
  });
  menu.addSeparator();
  menu_.Add(menu, Text::WindowNext, QKeySequence(Qt::CTRL | Qt::Key_Tab), [this] { code_->activateNextSubWindow(); });
  menu_.Add(menu, Text::WindowPrevious, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab),
            [this] { code_->activatePreviousSubWindow(); });
  menu_.Add(menu, Text::WindowClose, QKeySequence(Qt::CTRL | Qt::Key_F4), [this] { code_->closeActiveSubWindow(); });
  menu_.Add(menu, Text::WindowCloseAll, QKeySequence(), [this] { code_->closeAllSubWindows(); });
  menu.addSeparator();
  connect(&menu, &QMenu::aboutToShow, this, [this] { FillWindows(); });
}

void MainWindow::BuildOtherMenus() {
  menu_.AddMenu(Text::MenuAddIns, *addIns_);
  QMenu& help = menu_.AddMenu(Text::MenuHelp);
  menu_.Add(help, Text::HelpAbout, QKeySequence(), [this] { ShowAbout(); });
}

void MainWindow::FillRecent() {
  recentMenu_->clear();
  if (recent_.Entries().isEmpty()) recentMenu_->addAction(texts_(Text::FileRecentNone))->setEnabled(false);
  int number = 0;
  for (const QStringList& files : recent_.Entries()) {
    recentMenu_->addAction(RecentLabel(++number, files), this, [this, files] { OpenRecent(files); });
  }
}

void MainWindow::FillWindows() {
  for (QAction* entry : windowEntries_) delete entry;
  windowEntries_.clear();
  for (CodeWindow* window : code_->CodeWindows()) {
    QAction* entry = windowMenu_->addAction(window->windowTitle().remove(QLatin1String("[*]")), window,
                                            [window] { window->ThePane()->Show(); });
    entry->setCheckable(true);
    entry->setChecked(window == code_->Current());
    windowEntries_.push_back(entry);
  }
}

void MainWindow::ShowEditMenu(const QPoint& place) {
  QMenu menu;
  go_->AddContext(menu);
  menu.addSeparator();
  menu.addActions(editMenu_->actions());
  menu.exec(place);
}

void MainWindow::ShowAbout() {
  QMessageBox box(this);
  box.setWindowTitle(QStringLiteral("Quorvane"));
  box.setIconPixmap(Icons::Program().pixmap(64, 64));
  box.setText(texts_(Text::AboutText).arg(QApplication::applicationVersion()));
  box.exec();
}

}  // namespace quorvane::desktop
