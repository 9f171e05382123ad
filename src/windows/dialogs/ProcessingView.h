#pragma once

#include "windows/controls/DialogView.h"

namespace quorvane {
class frmProcessing;
}

namespace quorvane::windows {

/// The bar of a check for updates.
class ProcessingView final : public DialogView {
 public:
  /// The form outlives this.
  ProcessingView(frmProcessing& form, HWND parent);
};

}  // namespace quorvane::windows
