#pragma once

#include <QMainWindow>
#include <memory>
#include <vector>

#include "base/Event.h"
#include "desktop/files/RecentFiles.h"
#include "desktop/platform/Texts.h"
#include "desktop/platform/ToolkitTexts.h"
#include "desktop/review/TaskHistory.h"
#include "desktop/review/TaskMenu.h"
#include "desktop/shell/CursorStatus.h"
#include "desktop/shell/DockWidth.h"
#include "desktop/shell/EncodingStatus.h"
#include "desktop/shell/GroupSession.h"
#include "desktop/shell/MainMenu.h"
#include "desktop/shell/ToolDocks.h"
#include "desktop/shell/WindowLayout.h"

class QSettings;

namespace quorvane {

namespace workbench {
class Workbench;
}  // namespace workbench

namespace desktop {

class AddInsMenu;
class CodeArea;
class ChangesView;
class CodeEdit;
class ClashBar;
class FileCommands;
class GoMenu;
class MatchMarks;
class NoticeBar;
class ProjectTree;
class QtWindows;
class StartPage;
class ToolDock;
class ViewFactory;

/// The window of the workbench: code windows, project tree, the add-ins' tool windows around them, and the menus.
class MainWindow final : public QMainWindow {
 public:
  /// All four outlive this; `settings` keeps layout and recent files.
  MainWindow(workbench::Workbench& workbench, QtWindows& windows, const ViewFactory& views, QSettings& settings);
  ~MainWindow() override;

  FileCommands& Files() { return *files_; }
  CodeArea& Code() { return *code_; }
  ProjectTree& Tree() { return *tree_; }
  MainMenu& Menu() { return menu_; }
  AddInsMenu& AddIns() { return *addIns_; }
  const std::vector<ToolDock*>& ToolDocks() const { return docks_.All(); }

  /// Opens files and remembers them.
  void OpenFiles(const QStringList& files);
  /// Opens what was open when the last run ended; nothing where that was nothing.
  void OpenLast();
  NoticeBar& Notice() { return *notice_; }
  ClashBar& Clash() { return *clash_; }
  StartPage& Start() { return *start_; }
  ChangesView& Changes() { return *changes_; }
  QDockWidget& ChangesDock() { return *changesDock_; }
  TaskHistory& Tasks() { return tasks_; }
  TaskMenu& TaskEntries() { return taskMenu_; }
  MatchMarks& Matches() { return *matches_; }
  GoMenu& Go() { return *go_; }
  const Texts& Words() const { return texts_; }
  /// Shows a line for a while.
  void Tell(const QString& line);
  void Tell(Text text) { Tell(texts_(text)); }
  /// 0 Chinese, 1 English: the words of the workbench's own windows.
  void SetLanguage(std::int32_t language);
  /// Windows, docks and look as they were at the end of the last run; to be called when all tool windows are there.
  void RestoreLayout();

  /// What closing does, but nobody is asked: boxes and menus that wait for an answer go without one, and edits that are
  /// not saved are given up. False when that is still under way, or something runs that is being brought to its end: to
  /// be called again later.
  bool EndUnasked();
  /// The session is about to end: asks about edits that are not saved, or raises SessionEnding when `mayAsk` is false.
  /// False when the user wants to stay.
  bool MayEndSession(bool mayAsk);

  Event<> LanguageAsked;    ///< the language may have changed: whoever knows it calls SetLanguage
  Event<> SampleWanted;     ///< the user wants something to try
  Event<bool&> CloseAsked;  ///< the user wants to leave; true: not yet, something is being brought to its end
  Event<> SessionEnding;    ///< the session ends, and the user cannot be asked about edits that are not saved
  Event<> Closing;          ///< the user leaves; nothing can stop that any more

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void BuildCentre();
  void BuildTree();
  void BuildChanges();
  void BuildFileMenu();
  void BuildEditMenu();
  void BuildViewMenu();
  void BuildWindowMenu();
  void BuildOtherMenus();
  void Listen();

  void FillRecent();
  void FillWindows();
  void OpenRecent(const QStringList& files);
  void UpdateStatus();
  void UpdateActions();
  void UpdateStart();
  void UpdateTitle();
  void UpdateTexts();
  void GoToLine();
  void ShowEditMenu(const QPoint& place);
  void ShowAbout();
  CodeEdit* CurrentEditor() const;
  /// Nothing when no code window is open.
  EncodingScope CurrentModule() const;
  std::shared_ptr<workbench::Project> ActiveProject() const;
  void BuildEncodingMenu(QMenu& above);

  workbench::Workbench& workbench_;
  QtWindows& windows_;
  Texts texts_;
  ToolkitTexts toolkitTexts_;
  RecentFiles recent_;
  MainMenu menu_;
  TaskHistory tasks_;
  TaskMenu taskMenu_;
  std::unique_ptr<FileCommands> files_;
  CodeArea* code_;
  NoticeBar* notice_;
  ClashBar* clash_;
  StartPage* start_;
  ProjectTree* tree_;
  QDockWidget* treeDock_;
  ChangesView* changes_;
  QDockWidget* changesDock_;
  DockWidth treeWidth_;
  AddInsMenu* addIns_;
  WindowLayout layout_;
  GroupSession session_;
  desktop::ToolDocks docks_;
  std::unique_ptr<MatchMarks> matches_;
  std::unique_ptr<GoMenu> go_;
  EncodingStatus encodingStatus_;
  CursorStatus cursorStatus_;
  QMenu* editMenu_ = nullptr;
  QMenu* recentMenu_ = nullptr;
  QMenu* viewMenu_ = nullptr;
  QMenu* windowMenu_ = nullptr;
  std::vector<QAction*> windowEntries_;
  bool closed_ = false;
  std::vector<Subscription> subscriptions_;
};

}  // namespace desktop
}  // namespace quorvane
