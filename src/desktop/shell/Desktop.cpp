#include "desktop/shell/Desktop.h"

#include "addin/connect/Connect.h"
#include "addin/connect/HotkeyProxy.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/dialogs/RegisterDialogs.h"
#include "addin/results/IResultPage.h"
#include "addin/results/Page.h"
#include "addin/results/PageCollection.h"
#include "addin/results/PageManager.h"
#include "addin/results/ResultDialog.h"
#include "addin/search/TaskManager.h"
#include "chordtrap/Item.h"
#include "chordtrap/KeyChord.h"
#include "chordtrap/Manager.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/QtWindows.h"
#include "desktop/shell/AddInsMenu.h"
#include "desktop/shell/InputFilter.h"
#include "desktop/shell/MainWindow.h"
#include "desktop/views/FormWindows.h"
#include "desktop/views/RegisterViews.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "workbench/model/AddInLoader.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

namespace {

constexpr char16_t kAddIn[] = u"QuorvaneForVB6.Connect";

/// Asks running searches to end; true when there were any. They end behind the event that is being handled now.
bool CancelTasks() {
  if (!Globals::gobjPageManager) return false;
  bool any = false;
  for (const auto& page : *Globals::gobjPageManager->mcolPages) {
    const auto task = page->Task();
    if (!task || !task->Running()) continue;
    task->mblnCancel = true;
    any = true;
  }
  return any;
}

/// Of the command that the add-in's menu entry carries out too.
QString SearchKeys() {
  if (!Globals::gobjHotkeyProxy) return {};
  for (const auto& item : Globals::gobjHotkeyProxy->Manager->Items()) {
    if (item->FuncName == u"ShowSearchDialog") return ToQString(chordtrap::KeyText(item->Key));
  }
  return {};
}

}  // namespace

Desktop::Desktop(const QtPlatform::Setup& setup)
    : platform_(setup),
      settings_(QString::fromStdString(setup.configFolder + "/desktop.ini"), QSettings::IniFormat),
      workbench_(std::make_shared<workbench::Workbench>(platform_.AnsiCodePage())),
      windows_(std::make_unique<QtWindows>(*workbench_)) {
  platform_.SetWindows(windows_.get());
  RegisterViews(views_, *windows_);
  window_ = std::make_unique<MainWindow>(*workbench_, *windows_, views_, settings_);
  forms_ = std::make_unique<FormWindows>(views_, *windows_, *window_);
  input_ = std::make_unique<InputFilter>(workbench_->Turns());
  addIns_ = std::make_unique<workbench::AddInLoader>(workbench_);
  addIns_->Register(kAddIn, [] { return std::make_shared<Connect>(); });
  workbench_->TheWindows()->RegisterDocumentFactory(std::u16string(ResultDialog::ProgId),
                                                    [] { return std::make_shared<ResultDialog>(); });
  PageManager::SetPageFactory([] { return std::make_shared<Page>(); });
  RegisterDialogs();
  closeAsked_ = window_->CloseAsked.Subscribe([](bool& busy) { busy = CancelTasks() || busy; });
  closing_ = window_->Closing.Subscribe([this] { Stop(); });
}

Desktop::~Desktop() {
  Stop();
  input_.reset();
  forms_.reset();
  window_.reset();
  forms::TheForms().Forget();
  addIns_.reset();
  workbench_.reset();
  Globals::EndOfCode();
}

void Desktop::Start() {
  running_ = true;
  languageAsked_ = window_->LanguageAsked.Subscribe([this] { FollowLanguage(); });
  // The options are closed when the language changes, also with no entry in a menu that could tell.
  formClosed_ = forms::TheForms().Closed.Subscribe([this](forms::Form&) { FollowLanguage(); });
  addIns_->Load(kAddIn, vbide::ConnectMode::Startup);
  FollowLanguage();
  window_->RestoreLayout();
  window_->show();
}

void Desktop::Stop() {
  if (!running_) return;
  running_ = false;
  languageAsked_.Reset();
  formClosed_.Reset();
  addIns_->UnloadAll(vbide::DisconnectMode::HostShutdown);
}

void Desktop::FollowLanguage() {
  window_->SetLanguage(Globals::Language().Language);
  window_->AddIns().ShowKeysOfFirst(SearchKeys());
}

}  // namespace quorvane::desktop
