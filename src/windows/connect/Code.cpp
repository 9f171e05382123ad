#include "windows/connect/Code.h"

#include <atomic>
#include <utility>

#include "addin/connect/Connect.h"
#include "addin/connect/HotkeyProxy.h"
#include "addin/core/Globals.h"
#include "addin/core/ModSEH.h"
#include "addin/dialogs/RegisterDialogs.h"
#include "addin/results/IResultPage.h"
#include "addin/results/Page.h"
#include "addin/results/PageCollection.h"
#include "addin/results/PageManager.h"
#include "addin/search/TaskManager.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/Skip.h"
#include "chordtrap/Manager.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "windows/bridge/Session.h"
#include "windows/com/Entry.h"
#include "windows/com/ErrorTranslation.h"
#include "windows/com/HostedDocument.h"
#include "windows/connect/MainWindow.h"
#include "windows/controls/ThemeScope.h"
#include "windows/dialogs/RegisterFormViews.h"
#include "windows/forms/Fonts.h"
#include "windows/forms/Window.h"
#include "windows/results/ResultView.h"

namespace quorvane::windows {

namespace {

/// Never destroyed by the end of the process: by then neither the host nor the window system can be asked for anything.
Code* running = nullptr;
/// Whose code it is, from before its beginning until after its end; 0 when there is none.
std::atomic<DWORD> owner{0};
/// A window of the owner's, to which other threads may post.
std::atomic<HWND> wakened{nullptr};

/// Asks running searches to end. They end after the event that is being handled now.
void CancelTasks() {
  if (!Globals::gobjPageManager) return;
  for (const auto& page : *Globals::gobjPageManager->mcolPages) {
    if (const auto task = page->Task()) task->mblnCancel = true;
  }
}

chordtrap::Manager* Hotkeys() {
  return Globals::gobjHotkeyProxy ? Globals::gobjHotkeyProxy->Manager.get() : nullptr;
}

vbide::ConnectMode ModeOf(std::int32_t mode) {
  switch (mode) {
    case 1:
      return vbide::ConnectMode::Startup;
    case 2:
      return vbide::ConnectMode::External;
    default:
      return vbide::ConnectMode::AfterStartup;
  }
}

}  // namespace

Code::Code() {
  PageManager::SetPageFactory([] { return std::make_shared<Page>(); });
  RegisterDialogs();
  RegisterFormViews(platform_.Views());
  ResultView::Register(platform_.Views());
  RouteKeys();
  removed_ = platform_.Input().Removed.Subscribe([this](const MSG& message) { epoch_.Follow(message.message); });
}

/// The host may have let go without a disconnection.
Code::~Code() {
  if (connect_) SkipErrors([this] { Stop(static_cast<std::int32_t>(vbide::DisconnectMode::HostShutdown)); });
  platform_.Input().SetHotkeys({});
  SkipErrors([] { ModSEH::InstallFilter(false); });
  Globals::EndOfCode();
  forms::TheForms().Forget();
  PageManager::SetPageFactory(nullptr);
}

Code& Code::The() {
  const DWORD self = ::GetCurrentThreadId();
  DWORD before = 0;
  if (!owner.compare_exchange_strong(before, self) && before != self) com::Check(RPC_E_WRONG_THREAD);
  if (running != nullptr) return *running;
  try {
    running = new Code;
  } catch (...) {
    owner = 0;
    throw;
  }
  wakened = running->platform_.Queue().Window();
  com::ModuleReference::WhenUnused(&Code::End);
  return *running;
}

bool Code::Running() {
  return owner != 0;
}

/// Another thread that lets go last has the owner end the code, after any message to a window of ours. A thread that
/// has ended has no windows any more.
void Code::End() {
  const DWORD self = ::GetCurrentThreadId();
  DWORD thread = owner;
  if (thread != self) {
    if (thread == 0 || ::PostMessageW(wakened, WM_NULL, 0, 0)) return;
    if (!owner.compare_exchange_strong(thread, self)) return;
  }
  com::ModuleReference::WhenUnused(nullptr);
  wakened = nullptr;
  delete running;
  running = nullptr;
  Window::ForgetClasses();
  ForgetFonts();
  ThemeScope::Forget();
  owner = 0;
}

/// A key that is held back does what it does without the add-in; one that fails is ours, and the press itself tells.
void Code::RouteKeys() {
  const auto takes = [](std::int32_t key, std::int32_t modifier) {
    chordtrap::Manager* manager = Hotkeys();
    bool taken = manager != nullptr;
    const bool answered = SkipErrors([&] { taken = taken && manager->Takes(key, modifier); });
    return taken || (manager != nullptr && !answered);
  };
  const auto run = [](std::int32_t key, std::int32_t modifier) {
    if (chordtrap::Manager* manager = Hotkeys()) manager->KeyDown(key, modifier);
  };
  platform_.Input().SetHotkeys({takes, run});
}

void Code::OnConnection(const com::ComPtr<IDispatch>& application, std::int32_t mode,
                        const com::ComPtr<IDispatch>& addIn) {
  if (!stopping_) return Start(application, mode, addIn);
  if (next_) RaiseError(ErrorNumber::InvalidProcedureCall, u"The add-in is connected already");
  next_ = Asked{application, mode, addIn};
}

void Code::Start(const com::ComPtr<IDispatch>& application, std::int32_t mode, const com::ComPtr<IDispatch>& addIn) {
  if (connect_) RaiseError(ErrorNumber::InvalidProcedureCall, u"The add-in is connected already");
  session_ = std::make_unique<bridge::Session>(
      application, epoch_, [](const com::ComPtr<IDispatch>& handed) { return com::DocumentBehind(handed.Get()); });
  platform_.SetMainWindow(FindMainWindow(application));
  connect_ = std::make_shared<Connect>();
  connect_->OnConnection(session_->Application(), ModeOf(mode), session_->AddIn(addIn));
}

void Code::OnDisconnection(std::int32_t mode) {
  next_.reset();
  if (!connect_ || stopping_) return;
  if (com::Entry::Depth() <= 1) return Stop(mode);  // this call itself is one
  StopSoon();
  com::Entry::WhenAtRest([mode] { The().StopAtRest(mode); });
}

void Code::StopAtRest(std::int32_t mode) {
  Stop(mode);
  const auto next = std::exchange(next_, std::nullopt);
  if (next) Start(next->application, next->mode, next->addIn);
}

/// What cannot wait: the host may come to its end without coming back here.
void Code::StopSoon() {
  stopping_ = true;
  SkipErrors([] { Deref(Hotkeys()).Stop(); });
  SkipErrors([] { Deref(Globals::gobjSetting).Save(); });
  SkipErrors([] { CancelTasks(); });
  const auto open = forms::TheForms().Open();
  for (const auto& form : open) SkipErrors([&] { form->Hide(); });
}

/// The shared slots stay filled, but behind them nothing of the host is held any more.
void Code::Stop(std::int32_t mode) {
  const auto connect = std::exchange(connect_, nullptr);
  stopping_ = false;
  if (connect)
    connect->OnDisconnection(mode == 0 ? vbide::DisconnectMode::HostShutdown : vbide::DisconnectMode::UserClosed);
  if (session_) session_->End();
  platform_.SetMainWindow(nullptr);
}

}  // namespace quorvane::windows
