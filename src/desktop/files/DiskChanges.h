#pragma once

#include <QFileSystemWatcher>
#include <QString>
#include <QTimer>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/Event.h"
#include "native/files/FileStamp.h"

class QWidget;

namespace quorvane {

namespace workbench {
class Component;
class Workbench;
}  // namespace workbench

namespace desktop {

class Texts;

/// Sees to the files of open modules that other programs change or remove: loads them again, keeps those with edits as
/// clashes for the user to settle, and asks where a file is gone and before a save goes over what nobody here has read.
class DiskChanges {
 public:
  enum class Answer { Reload, Keep, Cancel };

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

  /// One component of each file that changed on disk while it has edits here.
  const ComponentList& Clashes() const { return clashes_; }
  /// Loads the file, or keeps the edits for the next save; Cancel does nothing. Looks for clashes again.
  void Settle(std::shared_ptr<workbench::Component> component, Answer answer);
  /// Shows the three forms of a module, and settles as the user says.
  void Compare(const std::shared_ptr<workbench::Component>& component);

  Event<> ClashesChanged;
  Event<> Changed;             ///< texts or modified marks may have changed
  Event<const QString&> Told;  ///< a line that needs no answer

 private:
  void Heard();
  Answer Ask(const workbench::Component& component, bool saving);
  void ShowDifference(const workbench::Component& component);
  void FindClashes();
  void Reload(const workbench::Component& component, const native::FileStamp& stamp);
  bool FollowFile(const workbench::Component& component, bool saving);
  bool Restore(const workbench::Component& component);
  void SaveElsewhere(const workbench::Component& component);

  workbench::Workbench& workbench_;
  QWidget& window_;
  const Texts& texts_;
  QFileSystemWatcher watcher_;
  QTimer settle_;
  std::set<std::string> gone_;  ///< paths whose absence was told
  ComponentList clashes_;
  bool asking_ = false;
};

}  // namespace desktop
}  // namespace quorvane
