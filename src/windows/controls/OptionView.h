#pragma once

#include "windows/controls/CaptionView.h"

namespace quorvane::forms {
class OptionButton;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// One of several options. Tab comes to the one that is set, arrows lead to the others.
class OptionView final : public CaptionView {
 public:
  /// `first` of its group, which ends before the next control that is no option.
  OptionView(DialogView& dialog, const std::shared_ptr<forms::OptionButton>& option, HWND parent, bool first);

 protected:
  void Show() override;
  SIZE Measure() const override;
  void OnCommand(WORD code) override;

 private:
  const std::shared_ptr<forms::OptionButton> option_;
};

}  // namespace quorvane::windows
