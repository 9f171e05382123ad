#pragma once

#include <QTextEdit>

#include "base/Event.h"
#include "desktop/controls/Later.h"

namespace quorvane {

class frmCodePreview;

namespace desktop {

class PreviewHighlighter;

/// The text of the floating preview, in its colours and those of code. Gives the form the measurer that goes with its
/// font.
class CodePreviewView final : public QTextEdit {
 public:
  /// The form outlives this.
  CodePreviewView(frmCodePreview& form, QWidget* parent);
  ~CodePreviewView() override;

  /// Room for the longest line of the text as it is now.
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Follow();
  void ShowMatch();

  frmCodePreview& form_;
  PreviewHighlighter* highlighter_;  ///< of the document
  mutable QSize room_;               ///< that of sizeHint; not valid where the text has changed
  int match_ = 0;                    ///< where it begins in the document
  Later follow_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
