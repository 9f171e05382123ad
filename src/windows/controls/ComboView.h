#pragma once

#include <memory>
#include <string>
#include <vector>

#include "windows/controls/ControlView.h"

namespace quorvane::forms {
class ComboBox;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

class TextDrop;

/// A text to edit with a list, or a list alone. One that is edited takes dropped text.
class ComboView final : public ControlView {
 public:
  enum class Kind { Editable, ListOnly };

  ComboView(DialogView& dialog, const std::shared_ptr<forms::ComboBox>& combo, HWND parent, Kind kind);
  ~ComboView() override;

  /// The box in which the user types; nothing of a list alone.
  HWND Edit() const { return edit_; }
  HWND FocusWindow() const override { return edit_ != nullptr ? edit_ : Handle(); }
  void Place(const RECT& room) override;

 protected:
  void Show() override;
  SIZE Measure() const override;
  void OnCommand(WORD code) override;

 private:
  void ShowList();
  void ShowText();
  void TakeText();
  void Pick();

  const std::shared_ptr<forms::ComboBox> combo_;
  const Kind kind_;
  HWND edit_ = nullptr;
  std::vector<std::u16string> list_;  ///< as it is shown
  std::u16string text_;               ///< of the model, as it was shown or taken last
  std::int32_t selStart_ = 0;
  std::int32_t selLength_ = 0;
  std::unique_ptr<TextDrop> drop_;
};

}  // namespace quorvane::windows
