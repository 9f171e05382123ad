#pragma once

#include <cstdint>
#include <memory>

#include "addin/results/ICodePreview.h"
#include "platform/forms/Dialog.h"
#include "platform/forms/Font.h"
#include "platform/forms/RichTextBox.h"
#include "platform/forms/TextMeasurer.h"
#include "platform/forms/Timer.h"

namespace quorvane {

class RegExp;

/// The floating window beside the mouse: the code around a match with the match in red and, in replace preview, struck
/// through with its replacement in blue after it. A timer of its own decides whether it may be on the screen.
///
/// The text is measured, and its box placed, in twips; the form itself counts pixels, as every Dialog does. It shows
/// and hides its window by the handle, which never activates it, and keeps Visible in step itself.
///
/// The view's side: Font and rtPreview are shown, with the measurer that fits the view; sizes and places come from
/// here. Left to itself the form counts characters.
///
/// A failure reaches the caller, but that of the timer, which goes off without a word.
class frmCodePreview final : public forms::Dialog, public ICodePreview {
 public:
  frmCodePreview();
  ~frmCodePreview() override;

  std::int32_t Mode() const override { return mlngMode; }
  void SetMode(std::int32_t mode) override;
  void Update(const std::shared_ptr<PositionInfo>& pi, ICondInfo& cond) override;
  /// Error 91 while no page is active.
  bool CanShow() override;
  void UpdatePreviewPos() override;

  const forms::Font& Font() const { return rtPreview->Font(); }
  /// Never nothing.
  void SetMeasurer(std::shared_ptr<const forms::TextMeasurer> measurer);

  const std::shared_ptr<forms::RichTextBox> rtPreview = std::make_shared<forms::RichTextBox>();
  forms::Timer TimerSetVisible{200, false};

 protected:
  void Form_Unload(bool& cancel) override;
  void Form_LostFocus() override;
  void Form_Resize() override;

 private:
  void ShowReplacement(const PositionInfo& pi, const ICondInfo& cond);
  std::u16string Replacement(const std::u16string& old, const ICondInfo& cond);
  void FitSize();
  void SetWindowVisible(bool visible);
  bool IsPointerInside() const;
  bool IsHostInFront() const;
  void TimerSetVisible_Timer();

  std::int32_t mlngMode = 0;           ///< 0 off, 1 code preview, 2 replace preview
  std::unique_ptr<RegExp> mobjRegExp;  ///< made at first use
  std::shared_ptr<const forms::TextMeasurer> measurer_ = std::make_shared<forms::TextMeasurer>();
  Subscription onTimer_;
};

}  // namespace quorvane
