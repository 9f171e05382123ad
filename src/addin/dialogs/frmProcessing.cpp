#include "addin/dialogs/frmProcessing.h"

#include "addin/connect/Updater.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace quorvane {

namespace {

constexpr std::int32_t kStep = 10;
constexpr std::int32_t kCycle = 110;

}  // namespace

frmProcessing::frmProcessing()
    : FramedDialog(u"frmProcessing", forms::FormBorder::FixedToolWindow, forms::FormStart::CenterScreen) {
  Controls().Place(u"pb检查更新", pb检查更新);
  On(Timer进度条.Tick, [this] { Timer进度条_Timer(); });
}

frmProcessing::~frmProcessing() = default;

void frmProcessing::Form_Load() {
  Framed([&] {
    Globals::Language().UpdateUI(this);
    mobjUpdater = Globals::gobjUpdater;
    Updater& updater = Deref(mobjUpdater);
    onTaskDone_ = updater.TaskDone.Subscribe([this] { mobjUpdater_TaskDone(); });
    onError_ = updater.OnError.Subscribe(
        [this](std::int32_t number, const std::u16string& description) { mobjUpdater_OnError(number, description); });
    updater.StartCheck();
  });
}

void frmProcessing::Timer进度条_Timer() {
  pb检查更新->SetValue((pb检查更新->Value() + kStep) % kCycle);
}

void frmProcessing::mobjUpdater_TaskDone() {
  Framed([&] { Unload(); });
}

void frmProcessing::mobjUpdater_OnError(std::int32_t number, const std::u16string& description) {
  Framed([&] {
    ThePlatform().MessageBoxes().MsgBox(ToText(number) + u":" + description, kCritical, u"Updater");
    Unload();
  });
}

void frmProcessing::Form_QueryUnload(bool&, forms::UnloadMode mode) {
  Framed([&] {
    if (mode == forms::UnloadMode::FormControlMenu) Deref(mobjUpdater).CancelUpdate();
  });
}

void frmProcessing::Form_Unload(bool&) {
  onTaskDone_.Reset();
  onError_.Reset();
  mobjUpdater.reset();
  Timer进度条.SetEnabled(false);
}

void frmProcessing::Update() {
  SetCaption(Globals::Language().GetString(StringId::CheckingUpdate));
}

}  // namespace quorvane
