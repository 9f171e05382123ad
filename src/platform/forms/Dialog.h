#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "base/Event.h"
#include "platform/NativeWindows.h"
#include "platform/forms/Controls.h"
#include "platform/forms/Form.h"

namespace quorvane::forms {

class CommandButton;

enum class FormBorder {
  FixedDialog,      ///< title and close box
  FixedToolWindow,  ///< the same, small
  None,             ///< neither border nor title; showing it never takes the focus from anywhere
};

enum class FormStart {
  Manual,        ///< where Move puts it
  CenterScreen,  ///< in the middle of the screen until it is first shown, whatever its size becomes
};

/// A form with controls and keys: not to be sized by the user, no minimize or maximize box, not listed in the task bar,
/// and it sees keys before its controls do. The order of the controls is the tab order; labels, frames and other
/// controls that only show something are passed over, and so is all that lies in an invisible or disabled container.
///
/// Places are in pixels of the screen. A view that shows the form gives it its handle and its size when the form is
/// opened, before Form_Load, and keeps place and focus in step with Changed. The gestures are the user's side.
class Dialog : public Form {
 public:
  explicit Dialog(std::u16string name, FormBorder border = FormBorder::FixedDialog, FormStart start = FormStart::Manual)
      : Form(std::move(name)), border_(border), start_(start) {}
  ~Dialog() override;

  FormBorder Border() const { return border_; }

  /// Menu entries too.
  forms::Controls& Controls() { return controls_; }

  WindowHandle hWnd() const { return hWnd_; }  ///< 0 without a view
  void SetWindow(WindowHandle hWnd) { hWnd_ = hWnd; }

  std::int32_t Left() const { return left_; }
  std::int32_t Top() const { return top_; }
  std::int32_t Width() const { return width_; }
  std::int32_t Height() const { return height_; }
  void Move(std::int32_t left, std::int32_t top);
  /// Runs Form_Resize when it is another size, by whomever. A width or height below 0 counts as 0.
  void SetSize(std::int32_t width, std::int32_t height);

  /// The control that has the focus; null when none has.
  std::shared_ptr<Control> ActiveControl() const { return active_.lock(); }
  /// Error 5 while the form is not visible or the control is invisible or disabled.
  void SetFocus(const std::shared_ptr<Control>& control);

  /// Enter presses it wherever the focus is, but on another button; null when there is none.
  const std::shared_ptr<CommandButton>& DefaultButton() const { return defaultButton_; }
  /// Esc presses it; null when there is none.
  const std::shared_ptr<CommandButton>& CancelButton() const { return cancelButton_; }

  // Gestures
  /// The focus went to a control by mouse or Tab, or, with nothing, to something that is no control.
  void TakeFocus(const std::shared_ptr<Control>& control);
  /// True when the key has done its work here and must not reach the control.
  bool PressKey(std::int16_t keyCode, std::int16_t shift);
  /// A letter with Alt: the next control after the focus, round, whose caption marks it. A label hands the focus on to
  /// the control after it, a button is pressed, an option set, a check box clicked. False when no control has it.
  bool PressAccessKey(char16_t letter);
  /// On the form's own surface, not on a control. Button 1 left, 2 right, 4 middle.
  void PressMouse(std::int16_t button, std::int16_t shift, float x, float y) { Form_MouseDown(button, shift, x, y); }
  void DoubleClick() { Form_DblClick(); }
  /// The focus left the form's window, which holds no control that could have it.
  void LoseFocus() { Form_LostFocus(); }

 protected:
  virtual void Form_KeyDown(std::int16_t keyCode, std::int16_t shift);
  virtual void Form_MouseDown(std::int16_t button, std::int16_t shift, float x, float y);
  virtual void Form_DblClick() {}
  virtual void Form_LostFocus() {}
  virtual void Form_Resize() {}

  void SetDefaultButton(std::shared_ptr<CommandButton> button);
  void SetCancelButton(std::shared_ptr<CommandButton> button);

 private:
  bool PressEnter();
  bool PressEsc();
  bool Act(std::size_t place);

  forms::Controls controls_;
  FormBorder border_;
  FormStart start_;
  std::shared_ptr<CommandButton> defaultButton_;
  std::shared_ptr<CommandButton> cancelButton_;
  std::weak_ptr<Control> active_;
  WindowHandle hWnd_ = 0;
  std::int32_t left_ = 0;
  std::int32_t top_ = 0;
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
};

/// The character after the mark in a caption, in lower case for an ASCII letter; 0 when there is none.
char16_t AccessKey(std::u16string_view caption);

}  // namespace quorvane::forms
