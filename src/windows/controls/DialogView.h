#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "base/Event.h"
#include "windows/controls/ControlView.h"
#include "windows/controls/Layout.h"
#include "windows/controls/ToolTips.h"
#include "windows/forms/TextSize.h"
#include "windows/forms/View.h"
#include "windows/forms/Window.h"

namespace quorvane::forms {
class Control;
class Dialog;
class Frame;
class Menu;
}  // namespace quorvane::forms

namespace quorvane::windows {

class MenuView;

/// What the views of dialogs have in common: the controls with their layout, of which the sizes follow the captions;
/// the focus, which follows the dialog's active control and tells it where the user went; a press on the surface beside
/// the controls, which is the dialog's own.
class DialogView : public Window, public View {
 public:
  /// The dialog outlives this. `parent` is the form's window.
  DialogView(forms::Dialog& dialog, HWND parent);
  ~DialogView() override;

  HWND Handle() const override { return Window::Handle(); }
  SIZE WantedSize() const override { return wanted_; }
  void TakeFocus() override;
  bool TakeKey(const MSG& message) override;

  /// The view of a control; nothing for one that is not shown.
  ControlView* ViewOf(const forms::Control& control) const;

  // For the views of the controls
  const DialogUnits& Units() const { return units_; }
  ToolTips& Tips() { return tips_; }
  /// One for each control of the dialog, apart from those that the window system gives a meaning.
  int NextId() { return ++lastId_; }
  /// The user, or the window system on his behalf, put the focus there.
  void NoteFocus(ControlView* view);
  /// The focus went to another window, or to none with null.
  void NoteLeft(HWND next);
  /// Keeps the focus for a control that cannot have it for now.
  void HoldFocus();
  /// Puts the focus where the dialog says when it can be there again.
  void FollowFocus();
  /// A control needs another room.
  void NoteSizes();
  /// The ground that a control lies on, as WM_CTLCOLORSTATIC answers it; false for the usual one.
  bool ColorOf(HWND control, HDC context, LRESULT& result) const;

 protected:
  /// Makes the view of a control; the order is that of Tab.
  template <class Shown, class Model, class... More>
  Shown& Enter(const std::shared_ptr<Model>& model, HWND parent, More&&... more) {
    auto made = std::make_unique<Shown>(*this, model, parent, std::forward<More>(more)...);
    Shown& shown = *made;
    views_.push_back(std::move(made));
    shown.Start();
    return shown;
  }
  void EnterMenu(forms::Menu& menu);
  /// A frame with its option buttons and check boxes one below the other.
  std::unique_ptr<Placeable> EnterChoices(const std::shared_ptr<forms::Frame>& frame, HWND parent);
  /// All of it, after the last control. `first` is where the focus begins.
  void SetLayout(std::unique_ptr<Placeable> root, const forms::Control& first);
  forms::Dialog& TheDialog() const { return dialog_; }
  /// `page` has the ground of tabs from now on.
  void SetTabGround(HWND page) { tabGrounds_.push_back(page); }

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  bool IsSurface(LPARAM place) const;
  bool IsInFront() const;
  void GiveFocus(ControlView& view);
  void ShowDefaultButton() const;
  void Arrange() const;

  forms::Dialog& dialog_;
  DialogUnits units_;
  ToolTips tips_;
  std::vector<std::unique_ptr<ControlView>> views_;
  std::vector<std::unique_ptr<MenuView>> menus_;
  std::vector<HWND> tabGrounds_;
  std::unique_ptr<Placeable> root_;
  ControlView* first_ = nullptr;
  SIZE wanted_{};
  std::weak_ptr<forms::Control> followed_;  ///< what the dialog's active control was when the focus last followed it
  bool holding_ = false;                    ///< the focus waits on the surface
  bool giving_ = false;                     ///< the focus goes somewhere without the user
  HWND other_ = nullptr;                    ///< what had the focus last, when that was no control of the dialog
  int lastId_ = 99;
  Subscription changed_;
};

}  // namespace quorvane::windows
