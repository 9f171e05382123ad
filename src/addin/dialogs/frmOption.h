#pragma once

#include "addin/core/IVersionUI.h"
#include "addin/dialogs/FramedDialog.h"
#include "addin/dialogs/OptionControls.h"

namespace quorvane {

/// The modal dialog in which the user changes the preferences. Its controls are the edit buffer: filled at the load,
/// written back when it is closed by its OK button, dropped when it is closed otherwise. A text for the number of
/// preview lines that is no number drops them too, without a word. A control that a failing load did not fill is not
/// written back.
///
/// The view's side: SSTab设定 shows the panel of one tab, whose controls have it as container, themselves or by their
/// frames; ChordTrapControl1 is the whole third tab. Enter and Esc close nothing.
class frmOption final : public FramedDialog, public OptionControls, public IVersionUI {
 public:
  frmOption();
  ~frmOption() override;

  /// IVersionUI_Update: all captions, and the entries of Combo语言, of which none is picked then.
  void Update() override;

 protected:
  void Form_Load() override;
  void Form_Unload(bool& cancel) override;

 private:
  void UpdateGeneralTab();
  void UpdateOtherTabs();
  void MemToScreen();
  void ScreenToMem();
  void UpdateSensitivityText();

  std::int32_t filled_ = 0;  ///< how many steps of MemToScreen succeeded at the load, in their order
};

}  // namespace quorvane
