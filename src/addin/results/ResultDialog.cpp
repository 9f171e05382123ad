#include "addin/results/ResultDialog.h"

#include "addin/core/FileSystem.h"
#include "addin/core/Globals.h"
#include "addin/core/Guarded.h"
#include "addin/core/ISearchDialog.h"
#include "addin/core/LanguageManager.h"
#include "addin/results/FilterManager.h"
#include "addin/results/ICodePreview.h"
#include "addin/results/IResultPage.h"
#include "addin/results/PageManager.h"
#include "addin/search/TaskManager.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/KeyCode.h"
#include "base/Text.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "platform/forms/Label.h"
#include "platform/forms/MouseButton.h"
#include "platform/forms/OwnerDrawList.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"

namespace quorvane {

namespace {

template <class T>
void RegisterControl(forms::Controls& controls, const std::u16string& progId) {
  controls.Register(progId, [] { return std::make_shared<T>(); });
}

template <class Interface>
Interface& FormAs(std::u16string_view name) {
  return Deref(std::dynamic_pointer_cast<Interface>(forms::TheForms().Instance(name)));
}

PageCollection& Pages(const std::shared_ptr<PageManager>& manager) {
  return Deref(Deref(manager).mcolPages);
}

}  // namespace

ResultDialog::ResultDialog()
    : ImageList1(std::make_shared<forms::ImageList>()), vbalDTabControl1(std::make_shared<forms::TabControl>()) {
  RegisterControl<forms::PictureBox>(controls_, u"VB.PictureBox");
  RegisterControl<forms::Label>(controls_, u"VB.Label");
  RegisterControl<forms::OwnerDrawList>(controls_, u"ODCboLst6QVN.OwnerDrawComboList");
  ImageList1->Images = {u"tab-new"};
  for (forms::Menu* item : {&mnuRefreshResult, &mnuCancelSearch, &mnuReplacePreview}) item->SetEnabled(false);
  Guarded([this] { InitProperties(); });
  ListenToMenus();
  ListenToTabs();
}

ResultDialog::~ResultDialog() = default;

void ResultDialog::InitProperties() {
  vbalDTabControl1->SetImages(ImageList1);
  vbalDTabControl1->Add(std::u16string(kAddNewTab), u"", u" ", 0)->SetCanClose(false);
}

void ResultDialog::ListenToMenus() {
  On(mnuResultOption, &ResultDialog::mnuResultOption_Click);
  On(mnuShowSearchDialog, &ResultDialog::mnuShowSearchDialog_Click);
  On(mnuRefreshResult, &ResultDialog::mnuRefreshResult_Click);
  On(mnuCancelSearch, &ResultDialog::mnuCancelSearch_Click);
  On(mnuCodePreview, &ResultDialog::mnuCodePreview_Click);
  On(mnuReplacePreview, &ResultDialog::mnuReplacePreview_Click);
  On(mnuSetOption, &ResultDialog::mnuSetOption_Click);
  On(mnuResetTab, &ResultDialog::mnuResetTab_Click);
  On(mnuSaveAs, &ResultDialog::mnuSaveAs_Click);
  On(mnuAbout, &ResultDialog::mnuAbout_Click);
  On(mnuTabOption, &ResultDialog::mnuTabOption_Click);
  On(mnuToNewTab, &ResultDialog::mnuToNewTab_Click);
  On(mnuToCurTab, &ResultDialog::mnuToCurTab_Click);
  On(mnuCloseTab, &ResultDialog::mnuCloseTab_Click);
  On(mnuCloseOtherTabs, &ResultDialog::mnuCloseOtherTabs_Click);
  On(mnuCloseAllTabs, &ResultDialog::mnuCloseAllTabs_Click);
  onControls_.push_back(TimerRunTask.Tick.Subscribe([this] { Guarded([this] { TimerRunTask_Timer(); }); }));
}

void ResultDialog::On(forms::Menu& item, void (ResultDialog::*handler)()) {
  onControls_.push_back(item.Click.Subscribe([this, handler] { Guarded([&] { (this->*handler)(); }); }));
}

void ResultDialog::ListenToTabs() {
  const auto onButton = [this](std::int16_t button) { Guarded([&] { TabMouseDown(button); }); };
  onControls_.push_back(vbalDTabControl1->TabMouseDown.Subscribe(
      [onButton](const auto&, std::int16_t button, auto...) { onButton(button); }));
  onControls_.push_back(
      vbalDTabControl1->BarMouseDown.Subscribe([onButton](std::int16_t button, auto...) { onButton(button); }));
}

void ResultDialog::Setup() {
  mobjPageMgr = Globals::gobjPageManager;
  anyPage_ = ActivePage() != nullptr;
  onTabChange_ = Deref(mobjPageMgr).TabChange.Subscribe([this] { Guarded([this] { mobjPageMgr_TabChange(); }); });
}

void ResultDialog::TearDown() {
  TimerRunTask.SetEnabled(false);
  onTabChange_.Reset();
  onTaskBegin_.Reset();
  onTaskDone_.Reset();
  mobjPageMgr.reset();
  mobjTask.reset();
}

void ResultDialog::Update() {
  const struct {
    forms::Menu& item;
    StringId caption;
  } captions[] = {
      {mnuRefreshResult, StringId::ResultMenuRefresh},
      {mnuCancelSearch, StringId::ResultMenuCancel},
      {mnuCodePreview, StringId::ResultMenuCodePreview},
      {mnuReplacePreview, StringId::ResultMenuReplacePreview},
      {mnuSetOption, StringId::ResultMenuOptions},
      {mnuResetTab, StringId::ResultMenuClear},
      {mnuSaveAs, StringId::ResultMenuSaveAs},
      {mnuAbout, StringId::ResultMenuAbout},
      {mnuToNewTab, StringId::ResultMenuToNewTab},
      {mnuToCurTab, StringId::ResultMenuToCurrentTab},
      {mnuCloseTab, StringId::TabMenuClose},
      {mnuCloseOtherTabs, StringId::TabMenuCloseOthers},
      {mnuCloseAllTabs, StringId::TabMenuCloseAll},
      {mnuShowSearchDialog, StringId::ResultMenuShowSearchDialog},
  };
  for (const auto& [item, caption] : captions) item.SetCaption(Globals::Language().GetString(caption));
}

void ResultDialog::Show() {
  Guarded([this] { Globals::Language().UpdateUI(this); });
}

void ResultDialog::Resize(std::int32_t width, std::int32_t height) {
  Guarded([&] { vbalDTabControl1->Move(0, 0, width, height); });
}

void ResultDialog::KeyDown(std::int16_t keyCode, std::int16_t shift) {
  Guarded([&] {
    if (const auto page = ActivePage()) {
      page->ProcessKeyDown(keyCode, shift);
    } else if (keyCode == kKeyEscape) {
      Deref(Globals::gobjToolWindow).SetVisible(false);
    }
  });
}

std::shared_ptr<IResultPage> ResultDialog::ActivePage() const {
  return Deref(mobjPageMgr).ActivePage();
}

std::u16string ResultDialog::SelectedKey() const {
  return Deref(vbalDTabControl1->SelectedTab()).Key();
}

void ResultDialog::mnuResultOption_Click() {
  const auto page = ActivePage();
  const bool running = Deref(Deref(page).Task()).Running();
  mnuRefreshResult.SetEnabled(!running && page->CanRefresh());
  mnuCancelSearch.SetEnabled(running);
}

void ResultDialog::mnuShowSearchDialog_Click() {
  FormAs<ISearchDialog>(u"frmSearchDialog").ShowEx();
}

/// The task runs outside the menu's event.
void ResultDialog::mnuRefreshResult_Click() {
  TimerRunTask.SetEnabled(true);
}

void ResultDialog::TimerRunTask_Timer() {
  TimerRunTask.SetEnabled(false);
  const auto page = ActivePage();
  Deref(page).RefreshResult();
}

void ResultDialog::mnuCancelSearch_Click() {
  const auto page = ActivePage();
  Deref(Deref(page).Task()).mblnCancel = true;
}

void ResultDialog::mnuCodePreview_Click() {
  mnuCodePreview.SetChecked(!mnuCodePreview.Checked());
  mnuReplacePreview.SetEnabled(mnuCodePreview.Checked());
  if (!mnuCodePreview.Checked()) mnuReplacePreview.SetChecked(false);
  ApplyPreviewMode();
}

void ResultDialog::mnuReplacePreview_Click() {
  mnuReplacePreview.SetChecked(!mnuReplacePreview.Checked());
  ApplyPreviewMode();
}

void ResultDialog::ApplyPreviewMode() const {
  FormAs<ICodePreview>(u"frmCodePreview")
      .SetMode(mnuReplacePreview.Checked() ? kPreviewReplace
               : mnuCodePreview.Checked()  ? kPreviewCode
                                           : kPreviewOff);
}

void ResultDialog::mnuSetOption_Click() {
  forms::TheForms().Instance(u"frmOption")->Show(forms::FormModal::Modal);
}

void ResultDialog::mnuAbout_Click() {
  forms::TheForms().Instance(u"frmAbout")->Show(forms::FormModal::Modal);
}

void ResultDialog::mnuResetTab_Click() {
  const auto page = ActivePage();
  Deref(page).Reset();
}

void ResultDialog::mnuSaveAs_Click() {
  CommonDialog1.FileName = mstrLastFile;
  CommonDialog1.CancelError = true;
  CommonDialog1.Filter = Globals::Language().GetString(StringId::SaveFilter);
  CommonDialog1.DialogTitle = Globals::Language().GetString(StringId::SaveTitle);
  CommonDialog1.DefaultExt = u".XML";
  CommonDialog1.ShowSave();
  mstrLastFile = CommonDialog1.FileName;
  if (!EqualsNoCaseAscii(Globals::Files().GetExtensionName(mstrLastFile), u"xml")) return;
  const auto page = ActivePage();
  Deref(Deref(page).Filter()).Save(mstrLastFile);
}

void ResultDialog::mnuTabOption_Click() {
  mnuCloseTab.SetEnabled(Deref(vbalDTabControl1->SelectedTab()).CanClose());
  const std::int32_t target = Deref(Globals::gobjSetting).menumSearchTo;
  mnuToCurTab.SetChecked(target == kToCurTab);
  mnuToNewTab.SetChecked(target == kToNewTab);
}

void ResultDialog::mnuToNewTab_Click() {
  SearchTo(kToNewTab);
}

void ResultDialog::mnuToCurTab_Click() {
  SearchTo(kToCurTab);
}

void ResultDialog::SearchTo(std::int32_t target) {
  mnuToNewTab.SetChecked(target == kToNewTab);
  mnuToCurTab.SetChecked(target == kToCurTab);
  Deref(Globals::gobjSetting).menumSearchTo = target;
}

void ResultDialog::mnuCloseTab_Click() {
  Pages(mobjPageMgr).Remove(SelectedKey());
}

void ResultDialog::mnuCloseOtherTabs_Click() {
  Pages(mobjPageMgr).RemoveExcept(SelectedKey());
}

void ResultDialog::mnuCloseAllTabs_Click() {
  Pages(mobjPageMgr).RemoveAll();
  Deref(Globals::gobjToolWindow).Close();
}

void ResultDialog::TabMouseDown(std::int16_t button) {
  if (button == forms::kRightButton) mnuTabOption.PopUp();
}

void ResultDialog::mobjPageMgr_TabChange() {
  onTaskBegin_.Reset();
  onTaskDone_.Reset();
  const auto page = ActivePage();
  FollowPages(page != nullptr);
  mobjTask = page ? page->Task() : nullptr;
  if (!mobjTask) return;
  onTaskBegin_ = mobjTask->TaskBegin.Subscribe([this](std::int32_t) { Guarded([this] { mobjTask_TaskBegin(); }); });
  onTaskDone_ =
      mobjTask->TaskDone.Subscribe([this](std::int32_t taskType) { Guarded([&] { mobjTask_TaskDone(taskType); }); });
}

/// Without a page the preview has nothing to ask whether it may stay, and does not wake up by itself.
void ResultDialog::FollowPages(bool any) {
  if (any == anyPage_) return;
  anyPage_ = any;
  if (!mnuCodePreview.Checked()) return;
  if (any) {
    ApplyPreviewMode();
  } else {
    FormAs<ICodePreview>(u"frmCodePreview").SetMode(kPreviewOff);
  }
}

void ResultDialog::mobjTask_TaskBegin() {
  Deref(mobjPageMgr).SetBarEnabled(false);
}

void ResultDialog::mobjTask_TaskDone(std::int32_t taskType) {
  const auto manager = mobjPageMgr;
  if (taskType != kTaskReplaceAll) {
    Guarded([&] { Deref(Deref(manager).ActivePage()).UpdateStatus(); });
  }
  Deref(manager).SetBarEnabled(true);
}

}  // namespace quorvane
