#pragma once

#include "desktop/platform/Texts.h"

class QLabel;
class QStatusBar;

namespace quorvane::desktop {

class CodeEdit;

/// The end of the status bar: line and column of the cursor, and how much is selected.
class CursorStatus {
 public:
  /// Both outlive this.
  CursorStatus(QStatusBar& bar, const Texts& texts);

  /// `editor` is the one in front, null when there is none.
  void Show(const CodeEdit* editor);

 private:
  const Texts& texts_;
  QLabel* selected_;
  QLabel* place_;
};

}  // namespace quorvane::desktop
