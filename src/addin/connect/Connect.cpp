#include "addin/connect/Connect.h"

#include "addin/connect/HotkeyProxy.h"
#include "addin/connect/SharedObjects.h"
#include "addin/connect/Updater.h"
#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/Guarded.h"
#include "addin/core/ISearchDialog.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/ModSEH.h"
#include "addin/results/IResultListDoc.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "chordtrap/Manager.h"
#include "platform/App.h"
#include "platform/Platform.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"

namespace quorvane {

namespace {

constexpr std::int32_t kButton = 1;

/// A start that fails before the settings are loaded leaves defaults for the disconnection to save: what is stored is
/// kept beside them, and `error` tells where.
Error WithSettingsKept(Error error) {
  std::u16string note;
  try {
    const std::u16string copy = GlobalSetting::KeepStored();
    if (!copy.empty()) note = TextAtAnyRate(StringId::SettingsKept, {copy});
  } catch (...) {
    note = CurrentError().Description;
  }
  if (!note.empty()) error.Description.append(kCrLf).append(note);
  return error;
}

}  // namespace

Connect::Connect() = default;

Connect::~Connect() = default;

void Connect::Show() {
  const std::shared_ptr<forms::Form> form = forms::TheForms().Instance(u"frmSearchDialog");
  Deref(std::dynamic_pointer_cast<ISearchDialog>(form)).ShowEx();
}

std::shared_ptr<vbide::CommandBarControl> Connect::AddToAddInCommandBar(const std::u16string& sCaption) {
  try {
    const auto bar = Deref(Deref(Globals::gobjVBE).CommandBars()).Item(u"Add-Ins");
    if (!bar) return nullptr;
    const auto control = bar->AddControl(kButton);
    Deref(control).SetCaption(sCaption);
    control->SetVisible(true);
    return control;
  } catch (...) {
    ShowHandledError();
    return nullptr;
  }
}

void Connect::OnConnection(const std::shared_ptr<vbide::VBE>& Application, vbide::ConnectMode connectMode,
                           const std::shared_ptr<vbide::AddIn>&) {
  Guarded([&] {
    try {
      ModSEH::InstallFilter(true);
      Globals::gobjVBE = Application;
      Globals::gobjConnect = shared_from_this();
      Globals::CreateObjects();
      FollowLanguage();
      Globals::SetupObjects();
      Deref(Globals::gobjHotkeyProxy).Manager->Start();
      Deref(Globals::gobjSetting).Load();
    } catch (...) {
      throw WithSettingsKept(CurrentError());
    }
    Deref(Globals::gobjUpdater).ScheduleUpdate();
    if (connectMode == vbide::ConnectMode::External) {
      Show();
    } else {
      MakeMenu();
    }
    Globals::Language().UpdateUI(this);
  });
}

void Connect::MakeMenu() {
  mcbMenuCommandBar = AddToAddInCommandBar(Globals::Language().GetString(StringId::HostMenu));
  if (!mcbMenuCommandBar) return;
  mobjMenuHandler = Deref(Deref(Globals::gobjVBE).Events()).CommandBarEvents(mcbMenuCommandBar);
  onClick_ = Deref(mobjMenuHandler).Click.Subscribe([this](const auto&, bool&, bool&) { mobjMenuHandler_Click(); });
}

/// The document and this are no forms; the document stands in its slot only between connection and disconnection.
void Connect::FollowLanguage() {
  onLanguage_ = Globals::Language().Changed.Subscribe([this] {
    Globals::Language().UpdateUI(Globals::gobjResultDoc.get());
    Globals::Language().UpdateUI(this);
  });
}

void Connect::OnDisconnection(vbide::DisconnectMode) {
  SkipErrors([] { Deref(Globals::gobjHotkeyProxy).Manager->Stop(); });
  SkipErrors([] { Deref(Globals::gobjSetting).Save(); });
  SkipErrors([] { Globals::UnloadForms(); });
  SkipErrors([] { Globals::TearDownObjects(); });
  SkipErrors([] { Globals::ReleaseObjects(); });
  onClick_.Reset();
  mobjMenuHandler.reset();
  SkipErrors([this] { Deref(mcbMenuCommandBar).Delete(); });
}

void Connect::Update() {
  ThePlatform().TheApp().Title = Globals::Language().GetString(StringId::ApplicationTitle);
  if (mcbMenuCommandBar) mcbMenuCommandBar->SetCaption(Globals::Language().GetString(StringId::HostMenu));
}

void Connect::mobjMenuHandler_Click() {
  Guarded([this] { Show(); });
}

}  // namespace quorvane
