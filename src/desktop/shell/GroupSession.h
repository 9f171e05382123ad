#pragma once

#include <QStringList>
#include <QTimer>

#include "base/Event.h"

class QSettings;

namespace quorvane {

namespace workbench {
class Component;
class Workbench;
}  // namespace workbench

namespace desktop {

class CodeArea;

/// Where the user was: for each group its open code windows with their selections, and which files were open when the
/// last run ended. Kept in the settings.
class GroupSession {
 public:
  /// All three outlive this.
  GroupSession(QSettings& settings, workbench::Workbench& workbench, CodeArea& code);

  /// These files are open now, none when all were closed. Other files than before: their windows come back as the user
  /// left them.
  void Follow(const QStringList& files);
  /// The program is about to end, or (false) goes on after all: meanwhile what closes is no choice of the user's.
  void Hold(bool held);

  /// What was open when the last run ended; empty where its opening was never finished, or where it is gone.
  QStringList LastFiles() const;
  /// LastFiles is being opened, or that is over: a run that ends in between is not to happen twice.
  void SetOpening(bool opening);

 private:
  void Note();
  void Write();
  void Restore(const QStringList& windows) const;
  workbench::Component* Named(const QString& name) const;

  QSettings& settings_;
  workbench::Workbench& workbench_;
  CodeArea& code_;
  QTimer soon_;
  QStringList files_;
  QStringList windows_;  ///< as they were at the end of the last turn of the message loop
  bool held_ = false;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
