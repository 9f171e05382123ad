#pragma once

#include "windows/controls/CaptionView.h"
#include "windows/forms/Fonts.h"

namespace quorvane::forms {
class Label;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// A label that opens something: underlined, in its colour, with the hand over it. Tab comes to it, and Space presses
/// it.
class LinkView final : public CaptionView {
 public:
  LinkView(DialogView& dialog, const std::shared_ptr<forms::Label>& label, HWND parent);

 protected:
  SIZE Measure() const override;
  void OnCommand(WORD code) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  void ShowFocus();

  const std::shared_ptr<forms::Label> label_;
  FontHandle underlined_;
};

}  // namespace quorvane::windows
