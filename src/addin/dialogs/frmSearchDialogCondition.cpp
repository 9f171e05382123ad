// The condition: controls to settings and back. Setting a control by program raises its events as typing does, and they
// lead to ScreenToMem; only MemToScreen keeps them silent.

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/Utilities.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "addin/search/PositionInfo.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/FlagScope.h"
#include "base/Text.h"
#include "platform/forms/DataObject.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

constexpr std::int16_t kClear = 0;
constexpr std::int16_t kTicked = 1;
constexpr std::int16_t kCommentStates = 3;

std::int16_t Tick(bool flag) {
  return flag ? kTicked : kClear;
}

}  // namespace

void frmSearchDialog::ListenToCondition() {
  for (forms::ComboBox* cmb : {cmbSearch.get(), cmbReplace.get()}) {
    On(cmb->Change, [this] { Condition_Changed(); });
    On(cmb->Click, [this] { Condition_Changed(); });
    On(cmb->OLEDragDrop, [cmb](const forms::DataObject& data) { OLEDragDrop(*cmb, data); });
  }
  On(optArea.Click, [this](std::int16_t) { Condition_Changed(); });
  On(optMode.Click, [this](std::int16_t) { Condition_Changed(); });
  On(chkMatchCase->Click, [this] { Condition_Changed(); });
  On(chkWholeWord->Click, [this] { Condition_Changed(); });
  On(chkIgnoreComment->Click, [this] { chkIgnoreComment_Click(); });
}

void frmSearchDialog::Condition_Changed() {
  if (!mblnUpdating) ScreenToMem();
}

void frmSearchDialog::MemToScreen() {
  const FlagScope updating(mblnUpdating);
  const GlobalSetting& setting = Setting();
  setting.mcolSearchHistory.FillList(*cmbSearch);
  setting.mcolReplaceHistory.FillList(*cmbReplace);
  cmbSearch->SetText(setting.mstrSearchStr);
  cmbReplace->SetText(setting.mstrReplaceStr);
  optArea.SetValue(static_cast<std::int16_t>(setting.menumArea), true);
  optMode.SetValue(static_cast<std::int16_t>(setting.menumMode), true);
  chkMatchCase->SetValue(Tick(setting.mblnMatchCase));
  chkWholeWord->SetValue(Tick(setting.menumMode == gsRegular ? setting.mblnRegSingleLine : setting.mblnWholeWord));
  chkIgnoreComment->SetValue(static_cast<std::int16_t>(setting.menumIgnoreComment));
  mintCommentState = chkIgnoreComment->Value();
  UpdateControlState();
}

void frmSearchDialog::ScreenToMem() {
  GlobalSetting& setting = Setting();
  const Utilities& utilities = Deref(Globals::gobjUtilities);
  setting.mstrSearchStr = FilterSpecialChar(cmbSearch->Text());
  setting.mstrReplaceStr = FilterSpecialChar(cmbReplace->Text());
  setting.menumArea = static_cast<gsArea>(utilities.GetOptionIndex(optArea));
  setting.menumMode = static_cast<gsMode>(utilities.GetOptionIndex(optMode));
  setting.mblnMatchCase = chkMatchCase->Value() == kTicked;
  bool& wholeWord = setting.menumMode == gsRegular ? setting.mblnRegSingleLine : setting.mblnWholeWord;
  wholeWord = chkWholeWord->Value() == kTicked;
  setting.menumIgnoreComment = static_cast<gsCommentStat>(chkIgnoreComment->Value());
  UpdateControlState();
}

std::u16string frmSearchDialog::FilterSpecialChar(std::u16string_view src) {
  return ReplaceAll(ReplaceAll(src, u"\r", u""), u"\n", u"");
}

/// A double click on the form changes the condition during a task too, and must not wake the buttons then: a second run
/// would start inside the first.
void frmSearchDialog::UpdateControlState() {
  const GlobalSetting& setting = Setting();
  const bool regular = setting.menumMode == gsRegular;
  const bool ready = !setting.mstrSearchStr.empty() && !IsTaskRunning();
  cmdSearch->SetEnabled(ready);
  cmdReplace->SetEnabled(ready && regular);
  chkWholeWord->SetCaption(Globals::Language().GetString(regular ? StringId::SingleLine : StringId::WholeWord));
}

void frmSearchDialog::chkIgnoreComment_Click() {
  if (mblnUpdating || mintCommentDepth >= 1) return;
  try {
    ++mintCommentDepth;
    mintCommentState = static_cast<std::int16_t>((mintCommentState + 1) % kCommentStates);
    chkIgnoreComment->SetValue(mintCommentState);
    --mintCommentDepth;
    ScreenToMem();
  } catch (...) {
    mintCommentDepth = 0;
    throw;
  }
}

void frmSearchDialog::OLEDragDrop(forms::ComboBox& cmb, const forms::DataObject& data) {
  if (data.GetFormat(forms::kPlainText)) cmb.SetText(data.GetData(forms::kPlainText));
}

void frmSearchDialog::AddToHistory(forms::ComboBox& cmb, StringCollection& hist) {
  const std::u16string text = cmb.Text();
  for (std::int32_t i = cmb.ListCount(); i-- > 0;) {
    if (cmb.List(i) == text) cmb.RemoveItem(i);
  }
  cmb.AddItem(text, 0);
  hist.RemoveAll();
  for (std::int32_t i = 0; i < cmb.ListCount(); ++i) hist.Add(cmb.List(i));
  cmb.SetText(text);  // removing the picked entry has emptied it
}

void frmSearchDialog::LoadFromSelection() {
  if (const auto pane = Deref(Globals::gobjVBE).ActiveCodePane()) {
    PositionInfo selection;
    selection.GetSelection(*pane);
    const std::u16string text = selection.MatchStr();
    if (!text.empty() && IsSingleLine(text)) cmbSearch->SetText(text);
    if (!text.empty() && !IsSingleLine(text)) optArea.SetValue(gsSelection, true);
  }
  cmbSearch->SetSelStart(0);
  cmbSearch->SetSelLength(static_cast<std::int32_t>(cmbSearch->Text().size()));
  if (Visible() && cmbSearch->Enabled()) SetFocus(cmbSearch);
}

bool frmSearchDialog::IsSingleLine(std::u16string_view s) {
  const auto pieces = Split(s, kCrLf);
  return pieces.size() == 1 || (pieces.size() == 2 && pieces[1].empty());
}

}  // namespace quorvane
