#pragma once

#include <string>

#include "platform/forms/Control.h"

namespace quorvane::forms {

/// A control with a text of its own. An "&" in the caption marks the character after it as the access key, "&&" stands
/// for the sign itself.
class CaptionedControl : public Control {
 public:
  const std::u16string& Caption() const { return caption_; }
  void SetCaption(const std::u16string& caption);
  const std::u16string& ToolTipText() const { return toolTipText_; }
  void SetToolTipText(const std::u16string& text);

 private:
  std::u16string caption_;
  std::u16string toolTipText_;
};

}  // namespace quorvane::forms
