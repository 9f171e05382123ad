#pragma once

#include <QStringList>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Event.h"
#include "desktop/files/DiskChanges.h"
#include "desktop/files/EncodingScope.h"
#include "desktop/files/Encodings.h"

class QWidget;

namespace quorvane {

namespace workbench {
class Component;
class Project;
class Workbench;
}  // namespace workbench

namespace desktop {

class Texts;

/// Opens, saves, reloads and closes, asking the user where work could be lost and telling what went wrong. What fails
/// leaves files and modules as they were.
class FileCommands {
 public:
  /// `window` is the parent of all boxes; `settings` remembers code pages. All four outlive this.
  FileCommands(workbench::Workbench& workbench, QWidget& window, const Texts& texts, QSettings& settings);

  /// Closes what is open and opens `files` instead. When that fails, what was open is opened again. False when the user
  /// did not want to, or nothing was opened.
  bool Open(const QStringList& files);
  /// Opens files beside what is open.
  bool Add(const QStringList& files);
  /// The open dialog; empty when the user cancels.
  QStringList AskForFiles() const;

  /// Asks first where a file is no longer as it was read. False when nothing was saved: for an error, which was told,
  /// or by the user's answer.
  bool Save(const workbench::Component& component);
  bool SaveAll();
  /// Asks about edits that are not saved. False when the user wants to stay.
  bool CloseAll();
  /// The same question before the session ends, which may still be called off: nothing is closed. Who answers is not
  /// asked again by CloseAll unless there are other edits then.
  bool MayEndSession();
  bool CloseProject(const std::shared_ptr<workbench::Project>& project);

  /// The usual name of the code page in which files are open.
  QString PageOf(const EncodingScope& scope) const;
  /// Opens files again in another code page, by its name, and remembers that for this group. Asks about edits that are
  /// not saved, which go. False when the user wants to keep them.
  bool Reopen(const EncodingScope& scope, const QString& page);

  /// Loads again what other programs changed on disk but for what has edits here, a clash; asks once for a file that is
  /// gone.
  void CheckDisk() { disk_.Check(); }
  DiskChanges& Disk() { return disk_; }

  /// What the user opened and has not closed.
  const QStringList& OpenFiles() const { return open_; }
  int ModifiedCount() const;

  Event<> Opened;              ///< other files than before
  Event<> Saved;               ///< the modified marks may have changed
  Event<const QString&> Told;  ///< a line that needs no answer
  /// After each opening: a line for each listed file that could not be opened, or none.
  Event<const QStringList&> Missed;

 private:
  using ComponentList = DiskChanges::ComponentList;

  /// Each edited module, and the state of its text.
  using States = std::vector<std::pair<const workbench::Component*, std::uint64_t>>;
  States ModifiedStates() const;
  bool OpenNow(const QStringList& files);
  bool MayClose(const ComponentList& modified);
  void CloseNow();
  ComponentList Modified(const workbench::Project* project) const;
  template <class SaveFiles>
  bool Guarded(SaveFiles save);
  bool ListsBeyondAscii(const EncodingScope& scope) const;
  void OpenAgain();
  bool OfferPages();
  QString AskForPage(const workbench::Project& project, const QString& now, const std::vector<std::string>& likely);

  workbench::Workbench& workbench_;
  QWidget& window_;
  const Texts& texts_;
  Encodings encodings_;
  QStringList open_;
  States givenUp_;  ///< edits that the user does not want to save at the end of the session
  DiskChanges disk_;
  Subscription diskChanged_;
  Subscription diskTold_;
};

}  // namespace desktop
}  // namespace quorvane
