#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "addin/core/Counted.h"
#include "addin/core/ILib.h"
#include "base/Event.h"
#include "chordtrap/IChordTrapKeeper.h"
#include "chordtrap/ICommandTarget.h"

namespace quorvane {

namespace chordtrap {
class Manager;
}

class GlobalSetting;

/// Bridge to the hotkeys: names the commands that exist and carries them out, stores their keys with the settings, and
/// holds keys back while the add-in's menu entry is disabled. A command that fails raises to whoever delivers the key.
class HotkeyProxy final : public ILib,
                          public chordtrap::IChordTrapKeeper,
                          public chordtrap::ICommandTarget,
                          private Counted<HotkeyProxy> {
 public:
  static constexpr std::string_view ClassName = "HotkeyProxy";

  HotkeyProxy();
  ~HotkeyProxy() override;

  const std::unique_ptr<chordtrap::Manager> Manager;

  void ShowSearchDialog();
  void LocatePrevResult();
  void LocateNextResult();
  void ShowResultList();
  void RefreshResult();

  void Setup() override;
  void TearDown() override;

  void SaveHotkey(const chordtrap::KeeperInfo& Info, const std::u16string& FuncName,
                  const std::u16string& Value) override;
  std::u16string LoadHotkey(const chordtrap::KeeperInfo& Info, const std::u16string& FuncName,
                            const std::u16string& DefaultValue) override;

  /// Runs the command of that name; error 438 when there is none.
  void Invoke(std::u16string_view name) override;

 private:
  void Remember(const std::u16string& appname, const std::u16string& section);

  std::shared_ptr<GlobalSetting> Setting;
  std::u16string mstrAppName;
  std::u16string mstrSection;
  Subscription onBeforeProcess_;
  Subscription onLoad_;
  Subscription onSave_;
};

}  // namespace quorvane
