#pragma once

#include "windows/controls/DialogView.h"

namespace quorvane {
class frmSearchDialog;
}

namespace quorvane::windows {

/// The search dialog: the two texts above the frames of choices, the buttons in a column on the right.
class SearchDialogView final : public DialogView {
 public:
  /// The form outlives this.
  SearchDialogView(frmSearchDialog& form, HWND parent);

 private:
  std::unique_ptr<Placeable> MakeTexts();
  std::unique_ptr<Placeable> MakeFrames();
  std::unique_ptr<Placeable> MakeButtons();

  frmSearchDialog& form_;
};

}  // namespace quorvane::windows
