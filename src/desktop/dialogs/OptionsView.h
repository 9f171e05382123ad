#pragma once

#include "desktop/dialogs/DialogView.h"

class QLayout;
class QTabWidget;

namespace quorvane::forms {
class Control;
class Frame;
}  // namespace quorvane::forms

namespace quorvane {

class frmOption;

namespace desktop {

class ButtonView;
class KeyEditorView;
class StylesheetCheck;

/// The options: four tabs and the two buttons below them.
class OptionsView final : public DialogView {
 public:
  /// The form outlives this.
  OptionsView(frmOption& form, QWidget* parent);

  QTabWidget& Tabs() { return *tabs_; }
  KeyEditorView& Keys() { return *keys_; }

 private:
  void MakeTabs();
  QWidget* MakeGeneralTab();
  QWidget* MakeFilterTab();
  QWidget* MakeHotkeyTab();
  QWidget* MakeLanguageTab();
  QLayout* MakeButtons();
  QWidget* MakePreviewFrame(QWidget* parent);
  QWidget* MakeUpdateFrame(QWidget* parent);
  void FollowTabs();
  /// What takes a stylesheet with a fault asks first.
  void AskBefore(ButtonView& button);
  bool MayTake();

  frmOption& form_;
  QTabWidget* tabs_;
  KeyEditorView* keys_ = nullptr;
  StylesheetCheck* check_ = nullptr;
  bool busy_ = false;
  Subscription tabsChanged_;
};

}  // namespace desktop
}  // namespace quorvane
