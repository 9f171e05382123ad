// Starting tasks and following them. The watched task is that of the current page, as its tab changes, with one
// exception: a running task that belongs to no page, a replace or the search of a page closed meanwhile, is watched to
// its end, since nothing else would tell the dialog that it is over. Its end leads back to the current page.

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "addin/results/IResultPage.h"
#include "addin/results/PageManager.h"
#include "addin/search/IPage.h"
#include "addin/search/ResultCollection.h"
#include "addin/search/TaskManager.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "platform/App.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace quorvane {

void frmSearchDialog::ListenToCommands() {
  On(cmdSearch->Click, [this] { cmdSearch_Click(); });
  On(cmdReplace->Click, [this] { cmdReplace_Click(); });
  On(cmdCancel->Click, [this] { cmdCancel_Click(); });
}

void frmSearchDialog::cmdSearch_Click() {
  ScreenToMem();
  AddToHistory(*cmbSearch, Setting().mcolSearchHistory);
  if (NeedNewPage()) Deref(mobjPageMgr).AddNewPage();
  WatchActivePage();
  RunTask(kTaskSearch);
}

void frmSearchDialog::cmdReplace_Click() {
  const int answer =
      ThePlatform().MessageBoxes().MsgBox(Globals::Language().GetString(StringId::ReplaceQuestion),
                                          kYesNo | kInformation | kSecondButton, ThePlatform().TheApp().Title);
  if (answer == kAnswerNo) return;
  ScreenToMem();
  AddToHistory(*cmbSearch, Setting().mcolSearchHistory);
  AddToHistory(*cmbReplace, Setting().mcolReplaceHistory);
  Watch(std::make_shared<TaskManager>());
  RunTask(kTaskReplaceAll);
}

void frmSearchDialog::RunTask(std::int32_t tt) {
  const std::shared_ptr<TaskManager> task = mobjTaskMgr;  // the dialog may let it go before it ends
  if (tt == kTaskReplaceAll) {
    RunReplace(Deref(task));
  } else {
    Deref(task).Run(tt);
  }
  if (Loaded()) MemToScreen();
  if (tt == kTaskSearch && task->mobjParent != nullptr) SearchEnded.Raise(Deref(task->mobjParent->Result()).Count());
}

void frmSearchDialog::RunReplace(TaskManager& task) {
  std::int32_t places = 0;
  std::int32_t modules = 0;
  task.OnReplaced = [&](std::int32_t count) {
    places += count;
    ++modules;
  };
  try {
    task.Run(kTaskReplaceAll);
  } catch (...) {
    task.OnReplaced = nullptr;
    ReplaceEnded.Raise(places, modules);
    throw;
  }
  task.OnReplaced = nullptr;
  ReplaceEnded.Raise(places, modules);
}

void frmSearchDialog::cmdCancel_Click() {
  Deref(mobjTaskMgr).mblnCancel = true;
}

bool frmSearchDialog::IsTaskRunning() const {
  return mobjTaskMgr && mobjTaskMgr->Running();
}

bool frmSearchDialog::NeedNewPage() const {
  return Setting().menumSearchTo == kToNewTab || Deref(Deref(mobjPageMgr).mcolPages).Count() == 0;
}

void frmSearchDialog::UpdateTaskState() {
  const bool running = IsTaskRunning();
  EnableControls(!running);
  cmdCancel->SetVisible(running);
  if (running) {
    cmdCancel->SetEnabled(true);
    lblCurModule->SetEnabled(true);
  }
  lblCurModule->SetCaption({});
}

void frmSearchDialog::EnableControls(bool b) {
  for (const auto& control : Controls().All()) control->SetEnabled(b);
  if (b) UpdateControlState();
}

void frmSearchDialog::Watch(std::shared_ptr<TaskManager> task) {
  taskEvents_.clear();
  mobjTaskMgr = std::move(task);
  if (!mobjTaskMgr) return;
  const auto begin = [this](std::int32_t) { Framed([this] { mobjTaskMgr_TaskBegin(); }); };
  const auto scan = [this](const std::u16string& name) { Framed([&] { mobjTaskMgr_OnScanModule(name); }); };
  const auto done = [this](std::int32_t) { Framed([this] { mobjTaskMgr_TaskDone(); }); };
  taskEvents_.push_back(mobjTaskMgr->TaskBegin.Subscribe(begin));
  taskEvents_.push_back(mobjTaskMgr->OnScanModule.Subscribe(scan));
  taskEvents_.push_back(mobjTaskMgr->TaskDone.Subscribe(done));
}

void frmSearchDialog::WatchActivePage() {
  const auto page = mobjPageMgr ? mobjPageMgr->ActivePage() : nullptr;
  Watch(page ? page->Task() : nullptr);
}

void frmSearchDialog::mobjTaskMgr_TaskBegin() {
  UpdateTaskState();
  if (Setting().menumAutoHideSearchDlg == kHideAtBegin) Hide();
}

void frmSearchDialog::mobjTaskMgr_OnScanModule(const std::u16string& name) {
  lblCurModule->SetCaption(name);
}

void frmSearchDialog::mobjTaskMgr_TaskDone() {
  UpdateTaskState();
  const TaskManager& task = Deref(mobjTaskMgr);
  if (Setting().menumAutoHideSearchDlg == kHideAtEnd && !task.mblnCancel) Hide();
  if (task.mobjParent == nullptr) WatchActivePage();
}

void frmSearchDialog::mobjPageMgr_TabChange() {
  if (IsTaskRunning() && mobjTaskMgr->mobjParent == nullptr) return;
  WatchActivePage();
}

}  // namespace quorvane
