#pragma once

#include <QSettings>
#include <memory>

#include "base/Event.h"
#include "desktop/dialogs/ViewFactory.h"
#include "desktop/platform/QtPlatform.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace workbench {
class AddInLoader;
class Workbench;
}  // namespace workbench

namespace desktop {

class DialogPlace;
class FormWindows;
class InputFilter;
class MainWindow;
class QtWindows;
class UnsavedEdits;

/// The whole program behind its main function: the platform, the workbench with its windows, and the add-in in it. One
/// at a time.
class Desktop {
 public:
  explicit Desktop(const QtPlatform::Setup& setup);
  /// Lets the add-in go, if it is still there.
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  /// Loads the add-in and shows the main window as it was last time. Without a language that the add-in knows it stays
  /// outside; the user is told why, and the Add-Ins menu offers to start it.
  void Start();
  /// Opens what the user asked for, or what was open when the last run ended, then offers edits that earlier runs could
  /// not save.
  void OpenFirst(const QStringList& files);
  /// For a signal: writes the edits that are not saved into the journal, lets what runs come to its end, stops as after
  /// a close, and raises Ended. Returns at once.
  void EndSoon();
  /// Lets the add-in go: its settings are saved. Does nothing the second time.
  void Stop();

  MainWindow& Window() { return *window_; }
  workbench::Workbench& Host() { return *workbench_; }
  Event<> Ended;  ///< by EndSoon; nothing is left but to leave the message loop

  QtWindows& Windows() { return *windows_; }
  FormWindows& Forms() { return *forms_; }

 private:
  void FollowLanguage();
  void LoadAddIn(vbide::ConnectMode mode);
  void OfferAddIn();
  void OpenSample();

  const std::string sampleFolder_;
  QtPlatform platform_;
  QSettings settings_;
  std::shared_ptr<workbench::Workbench> workbench_;
  std::unique_ptr<QtWindows> windows_;
  ViewFactory views_;
  std::unique_ptr<MainWindow> window_;
  std::unique_ptr<UnsavedEdits> edits_;
  std::unique_ptr<FormWindows> forms_;
  std::unique_ptr<DialogPlace> dialogPlace_;
  std::unique_ptr<InputFilter> input_;
  std::unique_ptr<workbench::AddInLoader> addIns_;
  bool running_ = false;
  Subscription noResults_;
  Subscription languageAsked_;
  Subscription formClosed_;
  Subscription sampleWanted_;
  Subscription taskBegin_;
  Subscription taskDone_;
  Subscription closeAsked_;
  Subscription closing_;
  Subscription sessionEnding_;
  bool ending_ = false;  ///< by EndSoon
};

}  // namespace desktop
}  // namespace quorvane
