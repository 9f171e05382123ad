#include "addin/dialogs/frmSearchDialog.h"

#include "addin/connect/Updater.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/Utilities.h"
#include "addin/results/PageManager.h"
#include "addin/search/TaskManager.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/KeyCode.h"
#include "base/Skip.h"
#include "platform/NativeWindows.h"
#include "platform/forms/Screen.h"

namespace quorvane {

frmSearchDialog::frmSearchDialog() : FramedDialog(u"frmSearchDialog") {
  PlaceIn(Controls());
  SetDefaultButton(cmdSearch);
  ListenToCondition();
  ListenToCommands();
  ListenToMenu();
}

frmSearchDialog::~frmSearchDialog() = default;

GlobalSetting& frmSearchDialog::Setting() const {
  return Deref(Globals::gobjSetting);
}

void frmSearchDialog::ShowEx() {
  SkipErrors([&] { Show(); });
  SkipErrors([&] {
    if (!IsTaskRunning()) LoadFromSelection();
  });
  SkipErrors([&] { UpdateTaskState(); });
}

void frmSearchDialog::Form_Load() {
  Framed([&] {
    Globals::Language().UpdateUI(this);
    mobjPageMgr = Globals::gobjPageManager;
    if (mobjPageMgr) onTabChange_ = mobjPageMgr->TabChange.Subscribe([this] { mobjPageMgr_TabChange(); });
    WatchActivePage();  // no TabChange tells of a page that is there already, and its task may be running
    const forms::Screen& screen = forms::TheScreen();
    Move(screen.Left + (screen.Width - Width()) / 2, screen.Top + (screen.Height - Height()) / 2);
    MemToScreen();
    LoadFromSelection();
    UpdateTaskState();
    const Utilities& utilities = Deref(Globals::gobjUtilities);
    utilities.SetZOrder(hWnd(), kTopmostWindow);
    utilities.SetParent(hWnd(), utilities.VBHandle(Deref(Globals::gobjVBE)));
  });
}

void frmSearchDialog::Form_QueryUnload(bool& cancel, forms::UnloadMode mode) {
  if (mode != forms::UnloadMode::FormControlMenu) return;
  cancel = true;
  Hide();
}

void frmSearchDialog::Form_Unload(bool&) {
  SkipErrors([&] { Watch(nullptr); });
  onTabChange_.Reset();
  mobjPageMgr.reset();
}

void frmSearchDialog::Form_KeyDown(std::int16_t keyCode, std::int16_t) {
  Framed([&] {
    if (keyCode == kKeyEscape) Hide();
    if (keyCode == kKeyF1) Deref(Globals::gobjUpdater).GotoProjectSite();
  });
}

void frmSearchDialog::Form_DblClick() {
  Framed([&] { LoadFromSelection(); });
}

}  // namespace quorvane
