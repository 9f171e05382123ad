#pragma once

#include <string>

#include "desktop/files/EditJournal.h"

namespace quorvane {

namespace workbench {
class Workbench;
}  // namespace workbench

namespace desktop {

class MainWindow;

/// Sees to it that edits which are not saved outlive the program: keeps them in a journal, and offers those of runs
/// that did not come to their end.
class UnsavedEdits {
 public:
  /// `folder` is that of the journals, UTF-8; empty: nothing is kept. Workbench and window outlive this.
  UnsavedEdits(workbench::Workbench& workbench, MainWindow& window, const std::string& folder)
      : workbench_(workbench), window_(window), journal_(folder), on_(!folder.empty()) {}

  /// Writes the journal. A failure is told on the standard error.
  void Keep() const;
  /// The edits are saved, or the user does not want them.
  void Drop() const;
  /// Asks about each journal that is left, opens what it needs beside what is open, and makes its edits.
  void Offer();

 private:
  void BringBack(const EditJournal::Found& found);

  workbench::Workbench& workbench_;
  MainWindow& window_;
  EditJournal journal_;
  bool on_;
};

}  // namespace desktop
}  // namespace quorvane
