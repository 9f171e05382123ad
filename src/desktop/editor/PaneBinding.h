#pragma once

#include <QObject>
#include <memory>

#include "base/Event.h"

namespace quorvane {

class CodePage;

namespace workbench {
class Pane;
}

namespace desktop {

class CodeEdit;

/// Keeps the selection of a code pane (lines and screen columns) and that of its editor (units of the document) the
/// same, in both directions. A selection that is made through the pane comes into view.
class PaneBinding final : public QObject {
 public:
  /// `editor` and `page` outlive this. The editor takes over the pane's selection.
  PaneBinding(std::shared_ptr<workbench::Pane> pane, CodeEdit& editor, const CodePage& page);

 private:
  void ToEditor();
  void ToPane();
  int PositionOf(int line, int column) const;

  std::shared_ptr<workbench::Pane> pane_;
  CodeEdit& editor_;
  const CodePage& page_;
  bool busy_ = false;  ///< one side is being written, so that its echo counts for nothing
  Subscription paneChanged_;
};

}  // namespace desktop
}  // namespace quorvane
