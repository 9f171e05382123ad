#pragma once

#include "desktop/views/DialogView.h"

class QLayout;

namespace quorvane::forms {
class Frame;
}  // namespace quorvane::forms

namespace quorvane {

class frmSearchDialog;

namespace desktop {

/// The search dialog: both texts above, the frames side by side below them with the line that names the module being
/// searched, the buttons in a column on the right.
class SearchDialogView final : public DialogView {
 public:
  /// The form outlives this.
  SearchDialogView(frmSearchDialog& form, QWidget* parent);

 private:
  QLayout* MakeTexts();
  QLayout* MakeFrames();
  QLayout* MakeButtons();

  frmSearchDialog& form_;
};

}  // namespace desktop
}  // namespace quorvane
