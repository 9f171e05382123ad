#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "addin/dialogs/frmSearchDialog.h"
#include "platform/App.h"
#include "platform/CodePage.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/forms/Forms.h"
#include "support/MemoryRegistry.h"
#include "support/MemorySettings.h"
#include "support/ScriptedHttp.h"
#include "support/ScriptedSystem.h"
#include "vbide/VBIDE.h"
#include "windows/forms/FormWindows.h"
#include "windows/forms/InputHook.h"
#include "windows/forms/ViewFactory.h"
#include "windows/platform/Win32MessageLoop.h"
#include "windows/platform/Win32Windows.h"

namespace quorvane::test {

/// A platform with real windows and queue and nothing behind them; a message box is a failure of the test.
class ViewsPlatform final : public Platform {
 public:
  ViewsPlatform();
  ~ViewsPlatform() override;

  std::unique_ptr<RegExp> NewRegExp() override;
  std::shared_ptr<XmlDocument> NewXmlDocument() override;
  std::unique_ptr<XmlTable> NewXmlTable(const XmlTableShape& shape) override;
  const CodePage& AnsiCodePage() override { return *codePage_; }
  MessageLoop& Loop() override { return loop; }
  Prompts& MessageBoxes() override { return *prompts_; }
  App& TheApp() override { return app; }
  NativeWindows& Windows() override { return windows; }
  SettingsStore& Settings() override { return settings; }
  RegistryStore& Registry() override { return registry; }
  std::unique_ptr<HttpRequest> NewHttpRequest() override { return web.NewRequest(); }
  Shell& TheShell() override { return shell; }
  Clock& TheClock() override { return clock; }

  quorvane::windows::Win32MessageLoop loop;
  quorvane::windows::InputHook hook;
  quorvane::windows::Win32Windows windows;
  quorvane::windows::ViewFactory views;
  quorvane::windows::FormWindows forms;
  App app;
  MemorySettings settings;
  MemoryRegistry registry;
  ScriptedWeb web;
  RecordingShell shell;
  FakeClock clock;

 private:
  std::unique_ptr<CodePage> codePage_;
  std::unique_ptr<Prompts> prompts_;
};

/// A host of nothing but a main window with a box to type in, whose loop knows of no dialog, and the add-in's forms on
/// it. Keys and clicks are the window system's own, which handles one after the other as the user gives them.
class ViewsTest : public ::testing::Test {
 protected:
  ViewsTest();
  ~ViewsTest() override;

  /// Serves the queue as the host does until nothing waits for a moment.
  static void Serve();
  /// The same until `done` is true; false when it has not become so within seconds.
  static bool ServeUntil(const std::function<bool()>& done);

  /// A key alone, without serving the queue.
  static void Send(WORD key);
  static void Press(int key, std::initializer_list<int> held = {});
  static void Type(std::u16string_view text);
  /// With the mouse, in the middle of a window or at a place in its client area.
  static void Click(HWND window, bool right = false);
  static void ClickAt(HWND window, POINT place, bool right = false, int times = 1);

  frmSearchDialog& SearchDialog();
  void ShowSearchDialog();
  /// The window of an open form; null when it has none.
  static HWND WindowOf(const forms::Dialog& form);
  static HWND WindowOf(const forms::Control& control);
  static std::u16string TextOf(HWND window);
  /// Opens a modal form from an event of the loop and runs `walk` when it is in front; the walk has to close it.
  void Walk(const std::u16string& name, const std::function<void()>& open, const std::function<void()>& walk);
  /// The open form of that class.
  template <class Model>
  static Model& The() {
    for (const auto& form : forms::TheForms().Open()) {
      if (auto* found = dynamic_cast<Model*>(form.get())) return *found;
    }
    throw std::runtime_error("no such form is open");
  }
  /// Lets whoever runs the test take a picture of the screen, when the environment asks for pictures.
  static void Picture(const std::string& name);

  ViewsPlatform platform;
  HWND mainWindow = nullptr;
  HWND hostBox = nullptr;

 private:
  std::shared_ptr<vbide::VBE> host_;
};

}  // namespace quorvane::test
