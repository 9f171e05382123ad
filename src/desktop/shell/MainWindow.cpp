#include "desktop/shell/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QSessionManager>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/editor/CodeArea.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/CodeWindow.h"
#include "desktop/files/ClashBar.h"
#include "desktop/files/FileCommands.h"
#include "desktop/navigate/MatchMarks.h"
#include "desktop/platform/Icons.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/QtWindows.h"
#include "desktop/review/ChangesView.h"
#include "desktop/shell/AddInsMenu.h"
#include "desktop/shell/EncodingMenu.h"
#include "desktop/shell/GoMenu.h"
#include "desktop/shell/ProjectTree.h"
#include "desktop/shell/ToolDock.h"
#include "desktop/welcome/NoticeBar.h"
#include "desktop/welcome/StartPage.h"
#include "workbench/model/Component.h"
#include "workbench/model/HostCommandBars.h"
#include "workbench/model/HostWindow.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/ToolWindow.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

namespace {

constexpr QSize kFirstSize(1180, 780);
constexpr int kFirstTreeWidth = 270;
constexpr int kFirstChangesHeight = 260;
constexpr int kMessageTime = 8000;  // ms
constexpr int kCloseAgain = 20;     // ms

QStringList LocalFiles(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) files << url.toLocalFile();
  }
  return files;
}

/// Answers what waits in front in the way that does the least; false when nothing waits.
bool DismissWaiting() {
  QWidget* waiting = QApplication::activePopupWidget();
  if (waiting == nullptr) waiting = QApplication::activeModalWidget();
  if (waiting == nullptr) return false;
  if (auto* box = dynamic_cast<QMessageBox*>(waiting)) {
    for (const auto button : {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Abort, QMessageBox::Ok}) {
      if (box->button(button) == nullptr) continue;
      box->button(button)->click();
      return true;
    }
  }
  if (auto* dialog = dynamic_cast<QDialog*>(waiting)) {
    dialog->reject();
  } else {
    waiting->close();
  }
  return true;
}

std::shared_ptr<workbench::HostCommandBar> AddInsBar(const workbench::Workbench& workbench) {
  return workbench.TheCommandBars()->Add(u"Add-Ins");
}

}  // namespace

MainWindow::MainWindow(workbench::Workbench& workbench, QtWindows& windows, const ViewFactory& views,
                       QSettings& settings)
    : workbench_(workbench),
      windows_(windows),
      recent_(settings),
      menu_(*this, texts_),
      tasks_(workbench),
      taskMenu_(tasks_, texts_, *this),
      files_(std::make_unique<FileCommands>(workbench, *this, texts_, settings)),
      code_(new CodeArea(workbench, windows, texts_)),
      notice_(new NoticeBar(texts_)),
      clash_(new ClashBar(files_->Disk(), texts_)),
      start_(new StartPage(texts_, *code_)),
      tree_(new ProjectTree(workbench, texts_)),
      treeDock_(new QDockWidget(this)),
      changes_(new ChangesView(workbench, texts_)),
      changesDock_(new QDockWidget(this)),
      treeWidth_(*this, *treeDock_),
      addIns_(new AddInsMenu(AddInsBar(workbench), this)),
      layout_(settings, *this, *code_),
      session_(settings, workbench, *code_),
      docks_(*this, windows, views),
      matches_(std::make_unique<MatchMarks>(*code_, *statusBar(), texts_)),
      go_(std::make_unique<GoMenu>(workbench, *code_, texts_, *this)),
      encodingStatus_(*statusBar(), *files_, texts_, [this] { return CurrentModule(); }),
      cursorStatus_(*statusBar(), texts_) {
  setObjectName(QStringLiteral("MainWindow"));
  setWindowIcon(Icons::Program());
  BuildCentre();
  setAcceptDrops(true);
  setDockNestingEnabled(true);
  resize(kFirstSize.boundedTo(screen()->availableSize() * 9 / 10));
  windows_.Bind(workbench_.TheMainWindow()->Handle(), *this);
  windows_.Bind(windows_.GetTopWindow(workbench_.TheMainWindow()->Handle()), *code_->viewport());
  BuildTree();
  BuildChanges();
  BuildFileMenu();
  BuildEditMenu();
  BuildViewMenu();
  go_->AddTo(menu_, *addIns_);
  BuildWindowMenu();
  BuildOtherMenus();
  Listen();
  UpdateTexts();
  UpdateStart();
}

MainWindow::~MainWindow() {
  subscriptions_.clear();
}

void MainWindow::BuildCentre() {
  auto* centre = new QWidget;
  auto* layout = new QVBoxLayout(centre);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(notice_);
  layout->addWidget(clash_);
  layout->addWidget(code_, 1);
  setCentralWidget(centre);
}

void MainWindow::BuildTree() {
  treeDock_->setObjectName(QStringLiteral("ProjectTree"));
  treeDock_->setWidget(tree_);
  addDockWidget(Qt::LeftDockWidgetArea, treeDock_);
  setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
  resizeDocks({treeDock_}, {kFirstTreeWidth}, Qt::Horizontal);
}

void MainWindow::BuildChanges() {
  changesDock_->setObjectName(QStringLiteral("Changes"));
  changesDock_->setWidget(changes_);
  addDockWidget(Qt::BottomDockWidgetArea, changesDock_);
  resizeDocks({changesDock_}, {kFirstChangesHeight}, Qt::Vertical);
  changesDock_->hide();
  const auto listen = [this](auto& event, auto handler) { subscriptions_.push_back(event.Subscribe(handler)); };
  listen(changes_->SaveAllWanted, [this] { files_->SaveAll(); });
  listen(changes_->Told, [this](const QString& line) { statusBar()->showMessage(line, kMessageTime); });
  listen(changes_->LineWanted, [this](workbench::Component& component, std::int32_t line) {
    component.TheModule()->CodePane()->Show();
    if (CodeEdit* editor = CurrentEditor()) editor->GoToLine(line);
  });
}

CodeEdit* MainWindow::CurrentEditor() const {
  CodeWindow* window = code_->Current();
  return window != nullptr ? &window->Editor() : nullptr;
}

EncodingScope MainWindow::CurrentModule() const {
  CodeWindow* window = code_->Current();
  EncodingScope scope;
  if (window == nullptr) return scope;
  scope.component = window->TheComponent();
  for (const auto& project : workbench_.Projects()) {
    if (std::ranges::find(project->Components(), scope.component) != project->Components().end())
      scope.project = project;
  }
  if (!scope.project) scope.component = nullptr;  // it is on its way out
  return scope;
}

std::shared_ptr<workbench::Project> MainWindow::ActiveProject() const {
  return std::dynamic_pointer_cast<workbench::Project>(workbench_.ActiveVBProject());
}

void MainWindow::Listen() {
  const auto listen = [this](auto& event, auto handler) { subscriptions_.push_back(event.Subscribe(handler)); };
  listen(code_->CurrentChanged, [this] { UpdateStatus(); });
  listen(code_->MenuWanted, [this](const QPoint& place) { ShowEditMenu(place); });
  listen(tree_->CodeWanted, [](workbench::Component& component) { component.TheModule()->CodePane()->Show(); });
  listen(tree_->EncodingMenuWanted,
         [this](QMenu& menu, const EncodingScope& scope) { FillEncodingMenu(menu, scope, *files_, texts_); });
  listen(tree_->CloseWanted, [this](const auto& project) { files_->CloseProject(project); });
  listen(files_->Opened, [this] {
    session_.Follow(files_->OpenFiles());
    UpdateTitle();
    UpdateStart();
  });
  listen(files_->Missed, [this](const QStringList& lines) { notice_->Tell(Text::NotAllOpened, lines); });
  listen(start_->OpenWanted, [this] { OpenFiles(files_->AskForFiles()); });
  listen(start_->RecentWanted, [this](const QStringList& files) { OpenRecent(QStringList(files)); });
  listen(start_->SampleWanted, [this] { SampleWanted.Raise(); });
  listen(files_->Saved, [this] {
    code_->UpdateTitles();
    tree_->UpdateMarks();
    if (changes_->isVisible()) changes_->Changes().Update();
    UpdateStatus();
  });
  listen(files_->Told, [this](const QString& line) { Tell(line); });
  listen(go_->Told, [this](const QString& line) { Tell(line); });
  listen(addIns_->Changed, [this] { LanguageAsked.Raise(); });
  listen(workbench_.TheWindows()->Created, [this](const auto& window) {
    ToolDock& dock = docks_.Add(window);
    if (dockWidgetArea(changesDock_) == Qt::BottomDockWidgetArea) tabifyDockWidget(&dock, changesDock_);
    viewMenu_->insertAction(treeDock_->toggleViewAction(), dock.toggleViewAction());
  });
  listen(workbench_.TheWindows()->Removed, [this](const auto& window) { docks_.Remove(*window); });
  connect(
      qApp, &QGuiApplication::commitDataRequest, this,
      [this](QSessionManager& session) {
        if (closed_) return;
        const bool mayAsk = files_->ModifiedCount() > 0 && session.allowsInteraction();
        const bool ends = MayEndSession(mayAsk);
        if (mayAsk) session.release();
        if (!ends) session.cancel();
      },
      Qt::DirectConnection);
  connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
    if (state == Qt::ApplicationActive && !closed_) files_->CheckDisk();
  });
}

void MainWindow::Tell(const QString& line) {
  statusBar()->showMessage(line, kMessageTime);
}

void MainWindow::OpenFiles(const QStringList& files) {
  if (!files_->Open(files)) return;
  recent_.Add(files_->OpenFiles());
  tree_->TakeFocus();
}

void MainWindow::OpenLast() {
  const QStringList files = session_.LastFiles();
  session_.SetOpening(true);
  if (!files.isEmpty()) OpenFiles(files);
  session_.SetOpening(false);
}

void MainWindow::OpenRecent(const QStringList& files) {
  if (files_->Open(files)) {
    recent_.Add(files);
    tree_->TakeFocus();
  } else if (!QFileInfo::exists(files.constFirst())) {
    recent_.Remove(files);
    UpdateStart();
  }
}

void MainWindow::SetLanguage(std::int32_t language) {
  if (language == texts_.Language) return;
  texts_.Language = language;
  UpdateTexts();
}

void MainWindow::UpdateTexts() {
  QCoreApplication::removeTranslator(&toolkitTexts_);
  if (texts_.Language == 0) QCoreApplication::installTranslator(&toolkitTexts_);
  ToolkitTexts::NameParts();
  menu_.UpdateTexts();
  taskMenu_.UpdateTexts();
  tree_->UpdateTexts();
  notice_->UpdateTexts();
  clash_->UpdateTexts();
  start_->UpdateTexts();
  go_->UpdateTexts();
  treeDock_->setWindowTitle(texts_(Text::Projects));
  treeDock_->toggleViewAction()->setText(texts_(Text::ViewProjects));
  changes_->UpdateTexts();
  changesDock_->setWindowTitle(texts_(Text::Changes));
  changesDock_->toggleViewAction()->setText(texts_(Text::ViewChanges));
  code_->viewport()->update();
  UpdateTitle();
  UpdateStatus();
}

void MainWindow::UpdateStart() {
  const bool empty = workbench_.Projects().empty();
  if (empty) {
    start_->SetRecent(recent_.Entries());
    notice_->Tell(Text::NotAllOpened, {});
  }
  start_->setVisible(empty);
}

void MainWindow::UpdateTitle() {
  QString group;
  for (const QString& file : files_->OpenFiles()) {
    if (file.endsWith(QLatin1String(".vbg"), Qt::CaseInsensitive)) group = QFileInfo(file).fileName();
  }
  tree_->SetGroup(group);
  const QString shown = !group.isEmpty()                ? group
                        : files_->OpenFiles().isEmpty() ? QString()
                                                        : QFileInfo(files_->OpenFiles().constFirst()).fileName();
  setWindowTitle(shown.isEmpty() ? QStringLiteral("Quorvane") : shown + QStringLiteral(" - Quorvane"));
  UpdateActions();
}

void MainWindow::UpdateStatus() {
  cursorStatus_.Show(CurrentEditor());
  encodingStatus_.Update();
  UpdateActions();
}

void MainWindow::UpdateActions() {
  const CodeEdit* editor = CurrentEditor();
  const auto enable = [this](Text text, bool enabled) {
    if (QAction* action = menu_.Find(text)) action->setEnabled(enabled);
  };
  const bool open = !workbench_.Projects().empty();
  enable(Text::FileSave, editor != nullptr && editor->TheModule()->Modified());
  enable(Text::FileSaveAll, open);
  enable(Text::FileClose, open);
  enable(Text::EditUndo, editor != nullptr && editor->TheModule()->CanUndo());
  enable(Text::EditRedo, editor != nullptr && editor->TheModule()->CanRedo());
  enable(Text::EditGoToLine, editor != nullptr);
  go_->UpdateActions();
  for (const Text text : {Text::WindowTile, Text::WindowCascade, Text::WindowNext, Text::WindowPrevious,
                          Text::WindowClose, Text::WindowCloseAll}) {
    enable(text, editor != nullptr);
  }
}

void MainWindow::GoToLine() {
  CodeEdit* editor = CurrentEditor();
  if (editor == nullptr) return;
  bool chosen = false;
  QString title = texts_(Text::EditGoToLine).remove(QLatin1Char('&')).remove(QLatin1String("..."));
  title = title.section(QLatin1String("(G)"), 0, 0);
  const int line = QInputDialog::getInt(this, title, texts_(Text::LineNumber).arg(editor->blockCount()),
                                        editor->textCursor().blockNumber() + 1, 1, editor->blockCount(), 1, &chosen);
  if (!chosen) return;
  editor->GoToLine(line);
  editor->setFocus();
}

void MainWindow::RestoreLayout() {
  layout_.Restore();
  for (ToolDock* dock : docks_.All()) dock->Follow();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (closed_) return event->accept();
  bool busy = false;
  CloseAsked.Raise(busy);
  if (busy) {
    QTimer::singleShot(kCloseAgain, this, [this] { close(); });
    return event->ignore();
  }
  session_.Hold(true);
  layout_.Save();
  if (!files_->CloseAll()) {
    session_.Hold(false);
    return event->ignore();
  }
  closed_ = true;
  event->accept();
  Closing.Raise();
}

bool MainWindow::EndUnasked() {
  if (closed_) return true;
  bool busy = DismissWaiting();
  CloseAsked.Raise(busy);
  if (busy) return false;
  session_.Hold(true);
  layout_.Save();
  closed_ = true;
  close();
  Closing.Raise();
  return true;
}

bool MainWindow::MayEndSession(bool mayAsk) {
  if (files_->ModifiedCount() == 0) return true;
  if (mayAsk) return files_->MayEndSession();
  SessionEnding.Raise();
  return true;
}

/// The caption is the window's title to the logic too.
bool MainWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowTitleChange) {
    workbench_.TheMainWindow()->SetCaption(FromQString(windowTitle()));
  }
  return QMainWindow::event(event);
}

/// The width of the last run.
void MainWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  QMetaObject::invokeMethod(
      this, [this] { treeWidth_.Note(); }, Qt::QueuedConnection);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!LocalFiles(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const QStringList files = LocalFiles(*event->mimeData());
  if (files.isEmpty()) return;
  event->acceptProposedAction();
  OpenFiles(files);
}

}  // namespace quorvane::desktop
