#pragma once

#include <QWidget>

#include "base/Event.h"
#include "desktop/dialogs/KeyBox.h"

class QLabel;
class QPushButton;
class QTreeWidget;

namespace quorvane {

namespace chordtrap {
class ChordTrapControl;
}

namespace desktop {

/// The key editor: the commands with their keys, the box that takes a key, and the buttons that give the key to the
/// chosen command or take its key away. A key that another command has cannot be given, and a line says whose it is.
class KeyEditorView final : public QWidget {
 public:
  /// The editor outlives this.
  KeyEditorView(chordtrap::ChordTrapControl& editor, QWidget* parent);

  QTreeWidget& Commands() { return *commands_; }
  KeyBox& Box() { return *box_; }
  QPushButton& AddButton() { return *add_; }
  QPushButton& RemoveButton() { return *remove_; }
  /// The line that tells of a key that is taken; empty when there is nothing to tell.
  QString Warning() const;

 private:
  void Listen();
  void Follow();
  void FollowRows();
  /// The command that has the pressed key already, but the chosen one; empty when there is none.
  QString Owner() const;
  void Add();

  chordtrap::ChordTrapControl& editor_;
  QTreeWidget* commands_;
  KeyBox* box_;
  QPushButton* add_;
  QPushButton* remove_;
  QLabel* warning_;
  bool busy_ = false;
  Subscription changed_;
  Subscription pressed_;
};

}  // namespace desktop
}  // namespace quorvane
