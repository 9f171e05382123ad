#pragma once

#include <memory>
#include <optional>

#include "base/Event.h"
#include "windows/forms/DisabledWindows.h"
#include "windows/forms/InputHook.h"
#include "windows/forms/View.h"
#include "windows/forms/Window.h"

namespace quorvane::forms {
class Dialog;
class Form;
}  // namespace quorvane::forms

namespace quorvane::windows {

class ViewFactory;

/// The window of one open form, of a size that its view chooses, or, without a border, the form. Follows caption,
/// visibility, modality and place of the form; the user's close box goes to the form, which decides. Keys go to the
/// view, then to the form, then through Tab, arrows and marked letters from control to control.
///
/// A window that was made a child of the host's keeps its title bar, whose look then follows the focus.
class FormWindow final : public Window, public KeyTarget {
 public:
  /// The window belongs to `owner`, above which it stays, and keeps the form until it goes itself.
  FormWindow(std::shared_ptr<forms::Form> form, const ViewFactory& views, HWND owner);
  ~FormWindow() override;

  /// Behind the end of the form: out of sight, and deaf to what still comes. To be called before Bury.
  void Retire();

  /// The window in front that is shown modally; null when none is.
  static HWND ModalInFront();

  bool TakeKey(const MSG& message) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Make(HWND owner);
  void Follow();
  void FollowSize();
  void KeepInside();
  void FollowPlace();
  bool IsHeldBack() const;
  void Show();
  void Hide();
  void ComeToFront();
  void BeginModal();
  void EndModal();
  HWND OwnerWindow() const;
  bool IsChild() const;
  bool HasFocus() const;
  void NoteFocusBefore();
  void ReturnFocus();
  void NoteFocus();
  void ShowFocus(bool active);
  void TellPlace();
  bool GoOn(const MSG& message);

  std::shared_ptr<forms::Form> form_;
  forms::Dialog* dialog_;  ///< the form when it is one, else nothing
  HWND owner_;
  bool floats_;  ///< without a border, of the size that the form says, never active
  bool busy_ = false;
  bool looksActive_ = false;
  HWND focusBefore_ = nullptr;  ///< what had the focus when this form last came to the front
  bool retired_ = false;
  std::optional<DisabledWindows> disabled_;  ///< while the form is shown modally
  std::unique_ptr<View> view_;
  Subscription changed_;
  Subscription shownAgain_;
  Subscription removed_;
};

}  // namespace quorvane::windows
