#include "addin/connect/HotkeyProxy.h"

#include "addin/connect/Connect.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/results/IResultPage.h"
#include "addin/results/PageManager.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/KeyCode.h"
#include "chordtrap/Manager.h"
#include "platform/Platform.h"
#include "platform/SettingsStore.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

struct Command {
  std::u16string_view name;
  StringId description;
  std::int32_t keyCode;
  std::int32_t modifier;
  void (HotkeyProxy::*run)();
};

constexpr Command kCommands[] = {
    {u"ShowSearchDialog", StringId::CommandShowSearchDialog, kKeyQ, chordtrap::kCtrl, &HotkeyProxy::ShowSearchDialog},
    {u"LocatePrevResult", StringId::CommandLocatePrevious, kKeyComma, chordtrap::kCtrl, &HotkeyProxy::LocatePrevResult},
    {u"LocateNextResult", StringId::CommandLocateNext, kKeyFullStop, chordtrap::kCtrl, &HotkeyProxy::LocateNextResult},
    {u"ShowResultList", StringId::CommandShowResultList, 0, 0, &HotkeyProxy::ShowResultList},
    {u"RefreshResult", StringId::CommandRefreshResult, 0, 0, &HotkeyProxy::RefreshResult},
};

std::shared_ptr<IResultPage> ActivePage() {
  return Deref(Globals::gobjPageManager).ActivePage();
}

/// Keys work while the menu entry is enabled. A connection without an entry has nothing that could forbid them.
bool KeysForbidden() {
  const auto entry = Deref(Globals::gobjConnect).mcbMenuCommandBar;
  return entry && !entry->Enabled();
}

}  // namespace

HotkeyProxy::HotkeyProxy() : Manager(std::make_unique<chordtrap::Manager>()) {
  for (const Command& command : kCommands) {
    Manager->Items().Add(Globals::Language().GetString(command.description), *this, std::u16string(command.name),
                         command.keyCode, command.modifier);
  }
  onBeforeProcess_ = Manager->BeforeProcess.Subscribe(
      [](std::int32_t, const chordtrap::KeyState&, bool& cancel) { cancel = KeysForbidden(); });
}

HotkeyProxy::~HotkeyProxy() = default;

void HotkeyProxy::ShowSearchDialog() {
  Deref(Globals::gobjConnect).Show();
}

void HotkeyProxy::LocatePrevResult() {
  Deref(ActivePage()).LocatePrevResult();
}

void HotkeyProxy::LocateNextResult() {
  Deref(ActivePage()).LocateNextResult();
}

void HotkeyProxy::ShowResultList() {
  Deref(Globals::gobjToolWindow).SetVisible(true);
}

void HotkeyProxy::RefreshResult() {
  Deref(ActivePage()).RefreshResult();
}

void HotkeyProxy::Setup() {
  Setting = Globals::gobjSetting;
  onLoad_ = Deref(Setting).LoadSetting.Subscribe([this](const std::u16string& appname, const auto& section) {
    Remember(appname, section);
    Manager->Load(*this);
  });
  onSave_ = Setting->SaveSetting.Subscribe([this](const std::u16string& appname, const auto& section) {
    Remember(appname, section);
    Manager->Save(*this);
  });
}

void HotkeyProxy::TearDown() {
  onLoad_.Reset();
  onSave_.Reset();
  Setting.reset();
}

void HotkeyProxy::Remember(const std::u16string& appname, const std::u16string& section) {
  mstrAppName = appname;
  mstrSection = section;
}

void HotkeyProxy::SaveHotkey(const chordtrap::KeeperInfo&, const std::u16string& FuncName,
                             const std::u16string& Value) {
  ThePlatform().Settings().SaveSetting(mstrAppName, mstrSection, FuncName, Value);
}

std::u16string HotkeyProxy::LoadHotkey(const chordtrap::KeeperInfo&, const std::u16string& FuncName,
                                       const std::u16string& DefaultValue) {
  return ThePlatform().Settings().GetSetting(mstrAppName, mstrSection, FuncName, DefaultValue);
}

void HotkeyProxy::Invoke(std::u16string_view name) {
  for (const Command& command : kCommands) {
    if (command.name == name) return (this->*command.run)();
  }
  RaiseError(ErrorNumber::NoSuchMember, u"Object doesn't support this property or method: " + std::u16string(name));
}

}  // namespace quorvane
