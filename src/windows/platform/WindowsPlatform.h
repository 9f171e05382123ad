#pragma once

#include <memory>
#include <string>

#include "platform/App.h"
#include "platform/Platform.h"
#include "windows/platform/FormWindows.h"
#include "windows/platform/InputHook.h"
#include "windows/platform/ViewFactory.h"
#include "windows/platform/Win32MessageLoop.h"
#include "windows/platform/Win32Windows.h"

namespace quorvane::windows {

/// The platform of the add-in inside the real host: the window system's own windows, queue, store and boxes. Installed
/// for as long as it lives; made when the host first wants an object of ours, gone at the end of the code.
class WindowsPlatform : public Platform {
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

  MessageLoop& Loop() override { return loop_; }
  App& TheApp() override { return app_; }
  NativeWindows& Windows() override { return windows_; }

 private:
  HWND mainWindow_ = nullptr;
  Win32MessageLoop loop_;
  InputHook input_;
  App app_;
  Win32Windows windows_;
  ViewFactory views_;
  FormWindows forms_;
};

}  // namespace quorvane::windows
