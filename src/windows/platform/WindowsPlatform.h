#pragma once

#include <memory>
#include <string>

#include "native/settings/FilePrivateProfile.h"
#include "platform/App.h"
#include "platform/CodePage.h"
#include "platform/Platform.h"
#include "windows/forms/FormWindows.h"
#include "windows/forms/InputHook.h"
#include "windows/forms/ViewFactory.h"
#include "windows/platform/RegistrySettingsStore.h"
#include "windows/platform/Win32Clock.h"
#include "windows/platform/Win32FaultFilter.h"
#include "windows/platform/Win32MessageLoop.h"
#include "windows/platform/Win32Prompts.h"
#include "windows/platform/Win32RegistryStore.h"
#include "windows/platform/Win32Shell.h"
#include "windows/platform/Win32Windows.h"

namespace quorvane::windows {

/// The platform of the add-in inside the real host: the window system's own windows, queue, store and boxes. Installed
/// for as long as it lives; made when the host first wants an object of ours, gone at the end of the code.
class WindowsPlatform final : public Platform {
 public:
  WindowsPlatform();
  ~WindowsPlatform() override;

  /// The one that is installed; error 91 when there is none.
  static WindowsPlatform& The();

  /// The host's main window, to which message boxes and forms belong from now on. Null: there is none.
  void SetMainWindow(HWND window);
  HWND MainWindow() const { return mainWindow_; }

  /// Whoever shows forms and documents registers here, before the first is opened.
  ViewFactory& Views() { return views_; }
  FormWindows& TheFormWindows() { return forms_; }
  InputHook& Input() { return input_; }
  Win32MessageLoop& Queue() { return loop_; }

  std::unique_ptr<RegExp> NewRegExp() override;
  std::shared_ptr<XmlDocument> NewXmlDocument() override;
  std::unique_ptr<XmlTable> NewXmlTable(const XmlTableShape& shape) override;
  const CodePage& AnsiCodePage() override { return *codePage_; }
  MessageLoop& Loop() override { return loop_; }
  Prompts& MessageBoxes() override { return prompts_; }
  App& TheApp() override { return app_; }
  NativeWindows& Windows() override { return windows_; }
  SettingsStore& Settings() override { return settings_; }
  RegistryStore& Registry() override { return registry_; }
  std::unique_ptr<HttpRequest> NewHttpRequest() override;
  Shell& TheShell() override { return shell_; }
  Clock& TheClock() override { return clock_; }
  ExceptionFilter& Faults() override { return faults_; }
  PrivateProfile* Profile() override { return &profile_; }

 private:
  HWND mainWindow_ = nullptr;
  std::unique_ptr<CodePage> codePage_;
  Win32MessageLoop loop_;
  InputHook input_;
  App app_;
  Win32Prompts prompts_;
  Win32Shell shell_;
  Win32Clock clock_;
  RegistrySettingsStore settings_;
  Win32RegistryStore registry_;
  native::FilePrivateProfile profile_;
  Win32FaultFilter faults_;
  Win32Windows windows_;
  ViewFactory views_;
  FormWindows forms_;
};

}  // namespace quorvane::windows
