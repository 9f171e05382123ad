#pragma once

#include <memory>
#include <string>

#include "windows/controls/ControlView.h"
#include "windows/forms/Fonts.h"

namespace quorvane::forms {
class TextBox;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// A plain text, of one line or several; of several in a font of fixed width.
class EditView final : public ControlView {
 public:
  /// `columns` and `lines` of it are seen at least.
  EditView(DialogView& dialog, const std::shared_ptr<forms::TextBox>& box, HWND parent, int columns, int lines = 1);

 protected:
  void Show() override;
  SIZE Measure() const override;
  void OnCommand(WORD code) override;

 private:
  const std::shared_ptr<forms::TextBox> box_;
  const int columns_;
  const int lines_;
  std::u16string text_;  ///< of the model, as it was shown or taken last
  bool taking_ = false;  ///< what the user has typed goes to the model now
  FontHandle fixed_;     ///< of several lines
};

}  // namespace quorvane::windows
