#pragma once

#include <QMainWindow>
#include <memory>
#include <vector>

#include "base/Event.h"
#include "desktop/platform/Texts.h"
#include "desktop/platform/ToolkitTexts.h"
#include "desktop/shell/CursorStatus.h"
#include "desktop/shell/MainMenu.h"
#include "desktop/shell/RecentFiles.h"
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
class CodeEdit;
class FileCommands;
class ProjectTree;
class QtWindows;
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
  /// 0 Chinese, 1 English: the words of the workbench's own windows.
  void SetLanguage(std::int32_t language);
  /// Windows, docks and look as they were at the end of the last run; to be called when all tool windows are there.
  void RestoreLayout();

  Event<> LanguageAsked;    ///< the language may have changed: whoever knows it calls SetLanguage
  Event<bool&> CloseAsked;  ///< the user wants to leave; true: not yet, something is being brought to its end
  Event<> Closing;          ///< the user leaves; nothing can stop that any more

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void BuildTree();
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
  void UpdateTitle();
  void UpdateTexts();
  void GoToLine();
  void ShowEditMenu(const QPoint& place);
  void ShowAbout();
  CodeEdit* CurrentEditor() const;

  workbench::Workbench& workbench_;
  QtWindows& windows_;
  Texts texts_;
  ToolkitTexts toolkitTexts_;
  RecentFiles recent_;
  MainMenu menu_;
  std::unique_ptr<FileCommands> files_;
  CodeArea* code_;
  ProjectTree* tree_;
  QDockWidget* treeDock_;
  AddInsMenu* addIns_;
  WindowLayout layout_;
  desktop::ToolDocks docks_;
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
