#pragma once

#include "windows/controls/CaptionView.h"

namespace quorvane::forms {
class CheckBox;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// A box of two or three states; which one comes after a click is the model's.
class CheckView final : public CaptionView {
 public:
  CheckView(DialogView& dialog, const std::shared_ptr<forms::CheckBox>& box, HWND parent);

 protected:
  void Show() override;
  SIZE Measure() const override;
  void OnCommand(WORD code) override;

 private:
  const std::shared_ptr<forms::CheckBox> box_;
};

/// The room of a check box or an option with a caption of that size.
SIZE SizeOfChoice(const DialogView& dialog, SIZE caption);

}  // namespace quorvane::windows
