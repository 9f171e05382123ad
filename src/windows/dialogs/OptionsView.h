#pragma once

#include "windows/controls/DialogView.h"

namespace quorvane {
class frmOption;
}

namespace quorvane::windows {

class KeyEditorView;
class TabStripView;

/// The options: four tabs and the two buttons below them.
class OptionsView final : public DialogView {
 public:
  /// The form outlives this.
  OptionsView(frmOption& form, HWND parent);
  ~OptionsView() override;

  bool TakeKey(const MSG& message) override;

  KeyEditorView& Keys() { return *keys_; }

 private:
  std::unique_ptr<Placeable> MakeGeneralTab(HWND page);
  std::unique_ptr<Placeable> MakePreviewFrame(HWND page);
  std::unique_ptr<Placeable> MakeUpdateFrame(HWND page);
  std::unique_ptr<Placeable> MakeFilterTab(HWND page);
  std::unique_ptr<Placeable> MakeHotkeyTab(HWND page);
  std::unique_ptr<Placeable> MakeLanguageTab(HWND page);
  std::unique_ptr<Placeable> MakeButtons();

  frmOption& form_;
  TabStripView* tabs_ = nullptr;
  std::unique_ptr<KeyEditorView> keys_;
};

}  // namespace quorvane::windows
