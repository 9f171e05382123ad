#pragma once

#include "windows/controls/CaptionView.h"

namespace quorvane::forms {
class CommandButton;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

class ButtonView final : public CaptionView {
 public:
  ButtonView(DialogView& dialog, const std::shared_ptr<forms::CommandButton>& button, HWND parent);

  /// With the thick border of the button that Enter presses, or without.
  void ShowDefault(bool isDefault);

 protected:
  SIZE Measure() const override;
  void OnCommand(WORD code) override;

 private:
  const std::shared_ptr<forms::CommandButton> button_;
  bool isDefault_ = false;
};

}  // namespace quorvane::windows
