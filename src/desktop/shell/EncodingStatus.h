#pragma once

#include <functional>

#include "desktop/files/EncodingScope.h"

class QMenu;
class QStatusBar;
class QToolButton;

namespace quorvane::desktop {

class FileCommands;
class Texts;

/// The code page of the module in front, in the status bar; a click on it offers others.
class EncodingStatus {
 public:
  /// All three outlive this; `scope` tells which module is in front, with no component for none.
  EncodingStatus(QStatusBar& bar, FileCommands& files, const Texts& texts, std::function<EncodingScope()> scope);

  void Update();

 private:
  FileCommands& files_;
  const Texts& texts_;
  std::function<EncodingScope()> scope_;
  QToolButton* button_;
  QMenu* menu_;
};

}  // namespace quorvane::desktop
