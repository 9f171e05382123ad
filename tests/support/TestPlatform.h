#pragma once

#include <optional>

#include "platform/App.h"
#include "platform/CodePage.h"
#include "platform/NativeWindows.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "support/MemoryProfile.h"
#include "support/MemoryRegistry.h"
#include "support/MemorySettings.h"
#include "support/ScriptedHttp.h"
#include "support/ScriptedLoop.h"
#include "support/ScriptedSystem.h"

namespace quorvane::test {

/// Message boxes and file dialogs that a test answers beforehand. One without an answer is a failure of the test.
class ScriptedPrompts final : public Prompts {
 public:
  struct Box {
    std::u16string text;
    int flags = 0;
    std::u16string caption;

    bool operator==(const Box&) const = default;
  };

  int MsgBox(const std::u16string& text, int flags, const std::u16string& caption) override;

  std::optional<std::u16string> AskSaveFileName(const FileDialogSetup& setup) override;

  std::deque<int> Answers;
  std::vector<Box> Shown;
  std::deque<std::optional<std::u16string>> FileNames;  ///< nothing: a cancel
  std::vector<FileDialogSetup> FileDialogs;
};

/// The platform of the tests: real engines, scripted everything else. Installed for as long as it lives, with the
/// shared objects that the logic reaches directly.
class TestPlatform final : public Platform {
 public:
  /// English texts; the code page by name.
  explicit TestPlatform(const std::string& codePage = "1252");
  ~TestPlatform() override;

  std::unique_ptr<RegExp> NewRegExp() override;
  std::shared_ptr<XmlDocument> NewXmlDocument() override;
  std::unique_ptr<XmlTable> NewXmlTable(const XmlTableShape& shape) override;
  const CodePage& AnsiCodePage() override { return *codePage_; }
  MessageLoop& Loop() override { return loop; }
  Prompts& MessageBoxes() override { return prompts; }
  App& TheApp() override { return app; }
  NativeWindows& Windows() override;
  SettingsStore& Settings() override { return *store; }
  RegistryStore& Registry() override { return registry; }
  std::unique_ptr<HttpRequest> NewHttpRequest() override { return web.NewRequest(); }
  Shell& TheShell() override { return shell; }
  Clock& TheClock() override { return clock; }
  ExceptionFilter& Faults() override { return faults; }
  PrivateProfile* Profile() override { return iniFiles; }

  ScriptedLoop loop;
  ScriptedPrompts prompts;
  App app;
  MemorySettings settings;
  SettingsStore* store = &settings;  ///< never nothing
  MemoryProfile profile;
  PrivateProfile* iniFiles = &profile;  ///< nothing: a platform without
  MemoryRegistry registry;
  ScriptedWeb web;
  RecordingShell shell;
  FakeClock clock;
  ScriptedFaults faults;
  NativeWindows* windows = nullptr;  ///< as a rule the workbench's; error 91 without

 private:
  std::unique_ptr<CodePage> codePage_;
};

}  // namespace quorvane::test
