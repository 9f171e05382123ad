#pragma once

#include <memory>
#include <string>

#include "platform/forms/CaptionedControl.h"
#include "windows/controls/ControlView.h"

namespace quorvane::windows {

/// A control that shows a caption, with its tool tip.
class CaptionView : public ControlView {
 protected:
  CaptionView(DialogView& dialog, const std::shared_ptr<forms::CaptionedControl>& control);

  const forms::CaptionedControl& Captioned() const { return captioned_; }
  void Show() override;
  /// Of the caption in the font of dialogs.
  SIZE CaptionSize() const;

 private:
  const forms::CaptionedControl& captioned_;
  std::u16string caption_;
  std::u16string tip_;
};

}  // namespace quorvane::windows
