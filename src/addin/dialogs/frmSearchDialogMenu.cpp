// The shortcut menu and the captions.

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "platform/forms/Forms.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

constexpr std::int16_t kRightButton = 2;
constexpr std::int32_t kToNewTab = 0;
constexpr std::int32_t kToCurTab = 1;

}  // namespace

void frmSearchDialog::ListenToMenu() {
  On(mnu显示结果列表.Click, [] { Deref(Globals::gobjToolWindow).SetVisible(true); });
  On(mnuToNewTab.Click, [this] { SearchTo(kToNewTab); });
  On(mnuToCurTab.Click, [this] { SearchTo(kToCurTab); });
  On(mnu选项.Click, [this] { ShowModal(u"frmOption"); });
  On(mnu关于.Click, [this] { ShowModal(u"frmAbout"); });
}

void frmSearchDialog::Form_MouseDown(std::int16_t button, std::int16_t, float, float) {
  Framed([&] {
    if (button != kRightButton) return;
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
  const auto text = [&](std::int32_t id) { return language.GetString(id); };
  SetCaption(text(101));
  lblMatch->SetCaption(text(102));
  lblReplace->SetCaption(text(103));
  frameArea->SetCaption(text(104));
  optAreaButtons[gsCurProcedure]->SetCaption(text(105));
  optAreaButtons[gsCurModule]->SetCaption(text(106));
  optAreaButtons[gsCurProject]->SetCaption(text(107));
  optAreaButtons[gsAllProjects]->SetCaption(text(108));
  optAreaButtons[gsSelection]->SetCaption(text(109));
  frameMode->SetCaption(text(110));
  optModeButtons[gsCommon]->SetCaption(text(111));
  optModeButtons[gsPattern]->SetCaption(text(112));
  optModeButtons[gsRegular]->SetCaption(text(113));
  frameOption->SetCaption(text(114));
  chkMatchCase->SetCaption(text(115));
  chkWholeWord->SetCaption(text(116));
  chkIgnoreComment->SetCaption(text(117));
  cmdSearch->SetCaption(text(118));
  cmdReplace->SetCaption(text(119));
  cmdCancel->SetCaption(text(120));
  chkIgnoreComment->SetToolTipText(text(121));
  mnu显示结果列表.SetCaption(text(219));
  mnuToNewTab.SetCaption(text(220));
  mnuToCurTab.SetCaption(text(221));
  mnu选项.SetCaption(text(222));
  mnu关于.SetCaption(text(223));
}

}  // namespace quorvane
