#include "platform/forms/CaptionedControl.h"

namespace quorvane::forms {

void CaptionedControl::SetCaption(const std::u16string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  Changed.Raise();
}

void CaptionedControl::SetToolTipText(const std::u16string& text) {
  if (text == toolTipText_) return;
  toolTipText_ = text;
  Changed.Raise();
}

}  // namespace quorvane::forms
