#pragma once

#include <string>

#include "platform/forms/Control.h"

namespace quorvane::forms {

/// A plain text to edit, in one line or several.
class TextBox final : public Control {
 public:
  enum class Lines { One, Many };

  explicit TextBox(Lines lines = Lines::One) : multiLine_(lines == Lines::Many) {}

  bool MultiLine() const { return multiLine_; }
  const std::u16string& Text() const { return text_; }
  /// Raises Change when the text is another one.
  void SetText(const std::u16string& text);

  /// The user may read, select and copy, but not edit.
  bool Locked() const { return locked_; }
  void SetLocked(bool locked);

  /// The user's side: the whole text after an edit. Its lines may be joined by LF or CR LF; the text keeps the kind of
  /// line break that it has, CR LF when it had none. Raises Change when the text is another one. A box that is locked,
  /// disabled or invisible takes none.
  void Edit(const std::u16string& text);

  Event<> Change;

 private:
  std::u16string text_;
  bool multiLine_;
  bool locked_ = false;
};

}  // namespace quorvane::forms
