#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QString>
#include <QTest>
#include <QTimer>
#include <deque>
#include <memory>
#include <vector>

#include "QtFixture.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Text.h"
#include "desktop/editor/CodeArea.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/CodeWindow.h"
#include "desktop/platform/QtText.h"
#include "desktop/shell/Desktop.h"
#include "desktop/shell/MainMenu.h"
#include "desktop/shell/MainWindow.h"
#include "desktop/shell/ToolDock.h"
#include "support/TempFolder.h"
#include "workbench/model/Module.h"
#include "workbench/model/Workbench.h"

class QTreeWidgetItem;

namespace quorvane {

namespace workbench {
class Component;
class Module;
}  // namespace workbench

namespace desktop {

class CodeEdit;
class MainWindow;

/// The whole program in this process, with settings and a copy of the samples in a folder of its own.
class DesktopTest : public QtTest {
 protected:
  DesktopTest();
  ~DesktopTest() override;

  /// Starts it with settings as the last run left them.
  void Start(const std::string& codePage = "1252");
  void Stop();
  void Open(const std::string& file);

  MainWindow& Window();
  std::shared_ptr<workbench::Component> ComponentNamed(const std::u16string& name);
  workbench::Module& ModuleNamed(const std::u16string& name);
  /// Shows its code window.
  CodeEdit& EditorOf(const std::u16string& name);
  /// The first item of the tree with these words; nothing when there is none.
  QTreeWidgetItem* ItemNamed(const QString& text);

  /// Presses a button of the next message box, which must come; `shown` gets its text. A box that no answer waits for
  /// is a failure.
  void AnswerNext(int button, QString* shown = nullptr);
  /// From now on boxes stay for the test itself.
  void LeaveBoxes() { poll_.stop(); }
  void WatchAgain() { poll_.start(); }

  test::TempFolder folder;
  QtPlatform::Setup setup;  ///< what Start starts with
  std::unique_ptr<Desktop> desktop;

 private:
  struct Answer {
    int button = 0;
    QString* shown = nullptr;
  };
  void WatchBoxes();

  std::deque<Answer> answers_;
  QTimer poll_;
};

}  // namespace desktop
}  // namespace quorvane
