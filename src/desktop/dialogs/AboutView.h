#pragma once

#include "desktop/dialogs/DialogView.h"

class QLayout;

namespace quorvane::forms {
class Frame;
class Label;
class TextBox;
}  // namespace quorvane::forms

namespace quorvane {

class frmAbout;

namespace desktop {

/// The about box: icon, title and version, both texts, a rule, the links and the button that closes it.
class AboutView final : public DialogView {
 public:
  /// The form outlives this.
  AboutView(frmAbout& form, QWidget* parent);

 private:
  QLayout* MakeHead();
  QWidget* MakeText(const std::shared_ptr<forms::Frame>& frame, const std::shared_ptr<forms::TextBox>& text,
                    bool readMe);
  QWidget* MakeRule();
  QLayout* MakeFoot();

  frmAbout& form_;
};

}  // namespace desktop
}  // namespace quorvane
