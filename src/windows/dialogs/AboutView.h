#pragma once

#include "windows/controls/DialogView.h"

namespace quorvane::forms {
class Frame;
class TextBox;
}  // namespace quorvane::forms

namespace quorvane {
class frmAbout;
}  // namespace quorvane

namespace quorvane::windows {

/// The about box: icon, title and version, the two texts, and the links beside the button.
class AboutView final : public DialogView {
 public:
  /// The form outlives this.
  AboutView(frmAbout& form, HWND parent);

 private:
  std::unique_ptr<Placeable> MakeHead();
  std::unique_ptr<Placeable> MakeText(const std::shared_ptr<forms::Frame>& frame,
                                      const std::shared_ptr<forms::TextBox>& text, int lines);
  std::unique_ptr<Placeable> MakeFoot();

  frmAbout& form_;
};

}  // namespace quorvane::windows
