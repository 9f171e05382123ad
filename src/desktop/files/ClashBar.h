#pragma once

#include <QFrame>

#include "base/Event.h"
#include "desktop/platform/Texts.h"

class QLabel;
class QToolButton;

namespace quorvane::desktop {

class DiskChanges;

/// A line above the code for each file that another program changed while it has edits here: to look at both, to load
/// the file, or to keep the edits. One at a time; hidden while there is none.
class ClashBar final : public QFrame {
 public:
  /// Both outlive this.
  ClashBar(DiskChanges& disk, const Texts& texts);

  void UpdateTexts();
  QToolButton& CompareButton() { return *compare_; }
  QToolButton& ReloadButton() { return *reload_; }
  QToolButton& KeepButton() { return *keep_; }

 private:
  void Follow();

  DiskChanges& disk_;
  const Texts& texts_;
  QLabel* label_;
  QToolButton* compare_;
  QToolButton* reload_;
  QToolButton* keep_;
  Subscription changed_;
};

}  // namespace quorvane::desktop
