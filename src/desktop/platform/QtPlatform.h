#pragma once

#include <memory>
#include <string>

#include "desktop/platform/QtMessageLoop.h"
#include "desktop/platform/QtPrompts.h"
#include "desktop/platform/QtShell.h"
#include "native/settings/FilePrivateProfile.h"
#include "native/settings/FileRegistryStore.h"
#include "native/settings/FileSettingsStore.h"
#include "native/system/FaultFilter.h"
#include "native/system/LocaleClock.h"
#include "platform/App.h"
#include "platform/HttpRequest.h"
#include "platform/Platform.h"

namespace quorvane::desktop {

/// The platform of the desktop. Installed for as long as it lives; an application object of the toolkit outlives it.
class QtPlatform final : public Platform {
 public:
  struct Setup {
    std::string codePage;       ///< by name; empty: that of the locale
    std::string configFolder;   ///< where settings are kept
    std::string dataFolder;     ///< where edits are kept that are not saved; empty: they are not
    std::string programFolder;  ///< where the files that come with the program lie
    std::string faultQuestion;  ///< program that asks the user what to do about a crash; empty: nobody is asked
  };

  /// Raises for an unknown code page.
  explicit QtPlatform(const Setup& setup);
  ~QtPlatform() override;

  /// The windows that Windows() gives from now on; nothing takes them away again. They outlive their use.
  void SetWindows(NativeWindows* windows) { windows_ = windows; }

  QtPrompts& Boxes() { return prompts_; }

  std::unique_ptr<RegExp> NewRegExp() override;
  std::shared_ptr<XmlDocument> NewXmlDocument() override;
  std::unique_ptr<XmlTable> NewXmlTable(const XmlTableShape& shape) override;
  const CodePage& AnsiCodePage() override { return *codePage_; }
  MessageLoop& Loop() override { return loop_; }
  Prompts& MessageBoxes() override { return prompts_; }
  App& TheApp() override { return app_; }
  /// Error 91 before SetWindows.
  NativeWindows& Windows() override;
  SettingsStore& Settings() override { return settings_; }
  RegistryStore& Registry() override { return registry_; }
  std::unique_ptr<HttpRequest> NewHttpRequest() override;
  Shell& TheShell() override { return shell_; }
  Clock& TheClock() override { return clock_; }
  ExceptionFilter& Faults() override { return faults_; }
  PrivateProfile* Profile() override { return &profile_; }

 private:
  std::unique_ptr<CodePage> codePage_;
  QtMessageLoop loop_;
  QtPrompts prompts_;
  QtShell shell_;
  App app_;
  native::FileSettingsStore settings_;
  native::FileRegistryStore registry_;
  native::FilePrivateProfile profile_;
  native::LocaleClock clock_;
  native::FaultFilter faults_;
  NativeWindows* windows_ = nullptr;
};

}  // namespace quorvane::desktop
