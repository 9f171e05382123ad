#include "windows/controls/CaptionView.h"

#include "windows/controls/DialogView.h"
#include "windows/forms/TextSize.h"

namespace quorvane::windows {

CaptionView::CaptionView(DialogView& dialog, const std::shared_ptr<forms::CaptionedControl>& control)
    : ControlView(dialog, control), captioned_(*control) {}

void CaptionView::Show() {
  if (caption_ != captioned_.Caption()) {
    caption_ = captioned_.Caption();
    SetText(caption_);
  }
  if (tip_ != captioned_.ToolTipText()) {
    tip_ = captioned_.ToolTipText();
    TheDialog().Tips().Set(Handle(), tip_);
  }
}

SIZE CaptionView::CaptionSize() const {
  return SizeOfCaption(TheFont(), captioned_.Caption());
}

}  // namespace quorvane::windows
