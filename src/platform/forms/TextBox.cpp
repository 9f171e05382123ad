#include "platform/forms/TextBox.h"

#include "base/Text.h"

namespace quorvane::forms {

void TextBox::SetText(const std::u16string& text) {
  if (text == text_) return;
  text_ = text;
  Changed.Raise();
  Change.Raise();
}

void TextBox::SetLocked(bool locked) {
  if (locked == locked_) return;
  locked_ = locked;
  Changed.Raise();
}

void TextBox::Edit(const std::u16string& text) {
  if (locked_ || !Enabled() || !Visible()) return;
  const bool bareLf = text_.find(u'\n') != text_.npos && text_.find(kCrLf) == text_.npos;
  const std::u16string lf = ReplaceAll(text, kCrLf, u"\n");
  SetText(bareLf ? lf : ReplaceAll(lf, u"\n", kCrLf));
}

}  // namespace quorvane::forms
