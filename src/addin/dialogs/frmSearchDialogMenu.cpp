// The shortcut menu and the captions.

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "platform/forms/Forms.h"
#include "platform/forms/MouseButton.h"
#include "vbide/VBIDE.h"

namespace quorvane {

void frmSearchDialog::ListenToMenu() {
  On(mnu显示结果列表.Click, [] { Deref(Globals::gobjToolWindow).SetVisible(true); });
  On(mnuToNewTab.Click, [this] { SearchTo(kToNewTab); });
  On(mnuToCurTab.Click, [this] { SearchTo(kToCurTab); });
  On(mnu选项.Click, [this] { ShowModal(u"frmOption"); });
  On(mnu关于.Click, [this] { ShowModal(u"frmAbout"); });
}

void frmSearchDialog::Form_MouseDown(std::int16_t button, std::int16_t, float, float) {
  Framed([&] {
    if (button != forms::kRightButton) return;
    ShowSearchTo();
    mnu快捷菜单->PopUp();
  });
}

void frmSearchDialog::ShowSearchTo() {
  mnuToCurTab.SetChecked(Setting().menumSearchTo == kToCurTab);
  mnuToNewTab.SetChecked(Setting().menumSearchTo == kToNewTab);
}

void frmSearchDialog::SearchTo(std::int32_t where) {
  Setting().menumSearchTo = where;
  ShowSearchTo();
}

void frmSearchDialog::ShowModal(std::u16string_view form) {
  forms::TheForms().Instance(form)->Show(forms::FormModal::Modal, shared_from_this());
}

void frmSearchDialog::Update() {
  const LanguageManager& language = Globals::Language();
  const auto text = [&](StringId id) { return language.GetString(id); };
  SetCaption(text(StringId::SearchDialogTitle));
  lblMatch->SetCaption(text(StringId::FindLabel));
  lblReplace->SetCaption(text(StringId::ReplaceLabel));
  frameArea->SetCaption(text(StringId::Area));
  optAreaButtons[gsCurProcedure]->SetCaption(text(StringId::CurrentProcedure));
  optAreaButtons[gsCurModule]->SetCaption(text(StringId::CurrentModule));
  optAreaButtons[gsCurProject]->SetCaption(text(StringId::CurrentProject));
  optAreaButtons[gsAllProjects]->SetCaption(text(StringId::AllProjects));
  optAreaButtons[gsSelection]->SetCaption(text(StringId::Selection));
  frameMode->SetCaption(text(StringId::Method));
  optModeButtons[gsCommon]->SetCaption(text(StringId::Common));
  optModeButtons[gsPattern]->SetCaption(text(StringId::Pattern));
  optModeButtons[gsRegular]->SetCaption(text(StringId::Regular));
  frameOption->SetCaption(text(StringId::Option));
  chkMatchCase->SetCaption(text(StringId::MatchCase));
  chkWholeWord->SetCaption(text(StringId::WholeWord));
  chkIgnoreComment->SetCaption(text(StringId::IgnoreComment));
  cmdSearch->SetCaption(text(StringId::Search));
  cmdReplace->SetCaption(text(StringId::ReplaceAll));
  cmdCancel->SetCaption(text(StringId::CancelSearchDialog));
  chkIgnoreComment->SetToolTipText(text(StringId::IgnoreCommentTip));
  mnu显示结果列表.SetCaption(text(StringId::SearchMenuShowResultList));
  mnuToNewTab.SetCaption(text(StringId::SearchMenuToNewTab));
  mnuToCurTab.SetCaption(text(StringId::SearchMenuToCurrentTab));
  mnu选项.SetCaption(text(StringId::SearchMenuOptions));
  mnu关于.SetCaption(text(StringId::SearchMenuAbout));
}

}  // namespace quorvane
