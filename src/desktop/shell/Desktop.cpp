#include "desktop/shell/Desktop.h"

#include <QLocale>
#include <QTimer>
#include <filesystem>

#include "addin/connect/Connect.h"
#include "addin/connect/HotkeyProxy.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/StringId.h"
#include "addin/dialogs/RegisterDialogs.h"
#include "addin/results/IResultPage.h"
#include "addin/results/Page.h"
#include "addin/results/PageCollection.h"
#include "addin/results/PageManager.h"
#include "addin/results/ResultDialog.h"
#include "addin/search/TaskManager.h"
#include "base/Error.h"
#include "base/FilePath.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "chordtrap/Item.h"
#include "chordtrap/KeyChord.h"
#include "chordtrap/Manager.h"
#include "desktop/dialogs/DialogPlace.h"
#include "desktop/dialogs/FormWindows.h"
#include "desktop/files/ErrorBox.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/QtWindows.h"
#include "desktop/shell/AddInsMenu.h"
#include "desktop/shell/InputFilter.h"
#include "desktop/shell/MainWindow.h"
#include "desktop/shell/RegisterViews.h"
#include "desktop/shell/UnsavedEdits.h"
#include "desktop/welcome/SampleGroup.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "workbench/model/AddInLoader.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/PathFinder.h"

namespace quorvane::desktop {

namespace {

constexpr int kEndAgain = 20;  // ms
constexpr char16_t kAddIn[] = u"QuorvaneForVB6.Connect";

/// Asks running searches to end; true when there were any. They end after the event that is being handled now.
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

/// 0 Chinese, 1 English.
std::int32_t SystemLanguage() {
  return QLocale::system().language() == QLocale::Chinese ? 0 : 1;
}

/// As an installer would: where nothing is stored yet, the add-in speaks the language of the system.
void StoreFirstLanguage() {
  std::error_code unknown;
  if (std::filesystem::exists(FilePath(ToUtf8(LanguageManager::StoredIn())), unknown) || unknown) return;
  SkipErrors([] { LanguageManager::Replace(SystemLanguage()); });
}

/// Why the add-in could not speak; empty when it can.
QString LanguageProblem() {
  try {
    const std::int32_t language = LanguageManager::Stored();
    if (language >= 0 && language < LanguageManager::kLanguages) return {};
    return ToQString(LanguageManager::StoredWords());
  } catch (const Error& error) {
    return ToQString(error.Description);
  }
}

}  // namespace

Desktop::Desktop(const QtPlatform::Setup& setup)
    : sampleFolder_((setup.dataFolder.empty() ? setup.configFolder : setup.dataFolder) + "/samples"),
      platform_(setup),
      settings_(QString::fromStdString(setup.configFolder + "/desktop.ini"), QSettings::IniFormat),
      workbench_(std::make_shared<workbench::Workbench>(platform_.AnsiCodePage())),
      windows_(std::make_unique<QtWindows>(*workbench_)) {
  workbench::ShowWholePaths();
  platform_.SetWindows(windows_.get());
  const auto tell = [this](const QString& line) { window_->Tell(line); };
  RegisterViews(views_, *windows_, tell);
  window_ = std::make_unique<MainWindow>(*workbench_, *windows_, views_, settings_);
  edits_ = std::make_unique<UnsavedEdits>(*workbench_, *window_,
                                          setup.dataFolder.empty() ? std::string() : setup.dataFolder + "/edits");
  forms_ = std::make_unique<FormWindows>(views_, *windows_, *window_);
  dialogPlace_ = std::make_unique<DialogPlace>(settings_, *forms_);
  input_ = std::make_unique<InputFilter>(workbench_->Turns());
  platform_.Boxes().Tell = tell;
  noResults_ = input_->NoResults.Subscribe([this] { window_->Tell(Text::NoResults); });
  addIns_ = std::make_unique<workbench::AddInLoader>(workbench_);
  addIns_->Register(kAddIn, [] { return std::make_shared<Connect>(); });
  workbench_->TheWindows()->RegisterDocumentFactory(std::u16string(ResultDialog::ProgId),
                                                    [] { return std::make_shared<ResultDialog>(); });
  PageManager::SetPageFactory([] { return std::make_shared<Page>(); });
  RegisterDialogs();
  closeAsked_ = window_->CloseAsked.Subscribe([](bool& busy) { busy = CancelTasks() || busy; });
  closing_ = window_->Closing.Subscribe([this] {
    if (!ending_) edits_->Drop();
    Stop();
  });
  const auto replaces = [](std::int32_t taskType) { return (taskType & kTaskReplaceAll) != 0; };
  taskBegin_ = TaskManager::AnyBegin().Subscribe([this, replaces](std::int32_t taskType) {
    if (replaces(taskType)) window_->Tasks().Begin();
  });
  taskDone_ = TaskManager::AnyDone().Subscribe([this, replaces](std::int32_t taskType) {
    if (replaces(taskType)) window_->Tasks().Done();
  });
  sampleWanted_ = window_->SampleWanted.Subscribe([this] { OpenSample(); });
  sessionEnding_ = window_->SessionEnding.Subscribe([this] { edits_->Keep(); });
}

Desktop::~Desktop() {
  Stop();
  platform_.Boxes().Tell = nullptr;
  input_.reset();
  dialogPlace_.reset();
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
  StoreFirstLanguage();
  const QString why = LanguageProblem();
  if (why.isEmpty()) LoadAddIn(vbide::ConnectMode::Startup);
  FollowLanguage();
  window_->RestoreLayout();
  window_->show();
  if (why.isEmpty()) return;
  OfferAddIn();
  TellError(*window_, window_->Words()(Text::AddInNotStarted), why);
}

void Desktop::LoadAddIn(vbide::ConnectMode mode) {
  addIns_->Load(kAddIn, mode);
}

/// Started from the menu the add-in makes its own entry there.
void Desktop::OfferAddIn() {
  window_->AddIns().Offer(window_->Words()(Text::StartAddIn), [this] {
    try {
      LanguageManager::Replace(SystemLanguage());
    } catch (const Error& error) {
      return TellError(*window_, window_->Words()(Text::AddInNotStarted), ToQString(error.Description));
    }
    QMetaObject::invokeMethod(  // the menu must not lose the entry that it is carrying out
        window_.get(),
        [this] {
          window_->AddIns().Offer({}, nullptr);
          LoadAddIn(vbide::ConnectMode::AfterStartup);
          FollowLanguage();
        },
        Qt::QueuedConnection);
  });
}

void Desktop::OpenFirst(const QStringList& files) {
  files.isEmpty() ? window_->OpenLast() : window_->OpenFiles(files);
  edits_->Offer();
}

void Desktop::OpenSample() {
  try {
    window_->OpenFiles({SampleGroup::Unpack(QString::fromStdString(sampleFolder_))});
  } catch (const Error& error) {
    TellError(*window_, window_->Words()(Text::CannotOpen), ToQString(error.Description));
  }
}

void Desktop::EndSoon() {
  if (!ending_) edits_->Keep();
  ending_ = true;
  if (!window_->EndUnasked()) {
    QTimer::singleShot(kEndAgain, window_.get(), [this] { EndSoon(); });
    return;
  }
  edits_->Keep();  // with what has still been edited
  Ended.Raise();
}

void Desktop::Stop() {
  if (!running_) return;
  running_ = false;
  languageAsked_.Reset();
  formClosed_.Reset();
  addIns_->UnloadAll(vbide::DisconnectMode::HostShutdown);
}

void Desktop::FollowLanguage() {
  std::int32_t language = SystemLanguage();
  if (addIns_->Loaded(kAddIn)) SkipErrors([&] { language = Globals::Language().Language; });
  window_->SetLanguage(language);
  window_->AddIns().ShowKeysOfFirst(SearchKeys());
  if (Globals::gobjToolWindow) {
    SkipErrors([] { Globals::gobjToolWindow->SetCaption(Globals::Language().GetString(StringId::ToolWindowTitle)); });
  }
}

}  // namespace quorvane::desktop
