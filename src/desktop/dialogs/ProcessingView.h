#pragma once

#include "desktop/dialogs/DialogView.h"

namespace quorvane {

class frmProcessing;

namespace desktop {

/// The progress window: its bar alone.
class ProcessingView final : public DialogView {
 public:
  /// The form outlives this.
  ProcessingView(frmProcessing& form, QWidget* parent);

 private:
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
