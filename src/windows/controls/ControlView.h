#pragma once

#include <memory>

#include "base/Event.h"
#include "windows/controls/Layout.h"
#include "windows/forms/Window.h"

namespace quorvane::forms {
class Control;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

class DialogView;

/// One control of a dialog: a standard control of the window system that follows its model and feeds the user's input
/// back to it. While it follows, what the control tells of its own changes is not the user's.
class ControlView : public Window, public Placeable {
 public:
  ~ControlView() override;

  const std::shared_ptr<forms::Control>& Model() const { return control_; }
  /// Takes the model's state and follows it from now on. Once, after the constructor.
  void Start();

  SIZE Least() const override { return least_; }
  void Place(const RECT& room) override;

  /// Whether it can have the focus: seen and enabled, here and in the model, and what it lies in too.
  bool IsUsable() const;
  /// The window that gets the focus.
  virtual HWND FocusWindow() const { return Handle(); }
  /// Whether that is in it.
  bool HasFocus() const;

 protected:
  /// `control` lies in `dialog`, which outlives this.
  ControlView(DialogView& dialog, std::shared_ptr<forms::Control> control);

  /// Makes the window in `parent`: its class, its style beside that of every control.
  void Make(HWND parent, const wchar_t* className, DWORD style, DWORD extendedStyle = 0);
  HFONT TheFont() const;
  void SetFont(HFONT font);
  DialogView& TheDialog() const { return dialog_; }
  bool Following() const { return following_ > 0; }

  /// Shows what the model says, but whether it is enabled and visible.
  virtual void Show() = 0;
  /// The room that it needs then.
  virtual SIZE Measure() const = 0;
  /// The user's input as a notification to the parent, such as BN_CLICKED.
  virtual void OnCommand(WORD) {}
  void Follow();

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  void FollowState();

  DialogView& dialog_;
  std::shared_ptr<forms::Control> control_;
  SIZE least_{};
  int following_ = 0;
  Subscription changed_;
};

}  // namespace quorvane::windows
