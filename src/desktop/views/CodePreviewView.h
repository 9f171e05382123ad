#pragma once

#include <QTextEdit>

#include "base/Event.h"
#include "desktop/views/Later.h"

namespace quorvane {

class frmCodePreview;

namespace desktop {

/// The text of the floating preview, in its colours. Gives the form the measurer that goes with its font.
class CodePreviewView final : public QTextEdit {
 public:
  /// The form outlives this.
  CodePreviewView(frmCodePreview& form, QWidget* parent);
  ~CodePreviewView() override;

 private:
  void Follow();

  frmCodePreview& form_;
  Later follow_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
