#pragma once

#include <QFileSystemWatcher>
#include <QString>
#include <QTimer>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/Event.h"

class QWidget;

namespace quorvane {

namespace workbench {
class Component;
class Workbench;
}  // namespace workbench

namespace desktop {

class Texts;

/// Sees to the files of open modules that other programs change or remove: loads them again, and asks the user where
/// that touches edits, where a file is gone, and before a save goes over what nobody here has read.
class DiskChanges {
 public:
  using ComponentList = std::vector<std::shared_ptr<workbench::Component>>;

  /// `window` is the parent of all boxes. All three outlive this.
  DiskChanges(workbench::Workbench& workbench, QWidget& window, const Texts& texts);

  /// Listens to the files of all open modules; to be called when others are open, and after each save.
  void Watch();
  /// Looks at all of them now. A file that is gone is asked about once.
  void Check();
  /// Whether the files of `wanted`, which have edits, may be written: false where the user says so, or where nothing is
  /// left to be saved.
  bool MaySave(const ComponentList& wanted);
  /// All components that show the file at `path`.
  ComponentList OfFile(const std::string& path) const;

  Event<> Changed;             ///< texts or modified marks may have changed
  Event<const QString&> Told;  ///< a line that needs no answer

 private:
  enum class Answer { Reload, Keep, Cancel };

  void Heard();
  Answer Ask(const workbench::Component& component, bool saving);
  void ShowDifference(const workbench::Component& component);
  bool FollowFile(const workbench::Component& component, bool saving);
  bool Restore(const workbench::Component& component);
  void SaveElsewhere(const workbench::Component& component);

  workbench::Workbench& workbench_;
  QWidget& window_;
  const Texts& texts_;
  QFileSystemWatcher watcher_;
  QTimer settle_;
  std::set<std::string> gone_;  ///< paths whose absence was told
  bool asking_ = false;
};

}  // namespace desktop
}  // namespace quorvane
