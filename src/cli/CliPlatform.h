#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/App.h"
#include "platform/MessageLoop.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace quorvane::cli {

/// The message loop of a program without windows: what can happen in a yield is Ctrl-C and a reader that went away.
class CliLoop final : public MessageLoop {
 public:
  void DoEvents() override;

  std::function<bool()> StopWanted;  ///< asked in each yield; true cancels
  std::function<void()> Cancel;
};

/// Message boxes become lines on standard error; every question is answered with its first button.
class CliPrompts final : public Prompts {
 public:
  int MsgBox(const std::u16string& text, int flags, const std::u16string& caption) override;
};

/// The platform of the command line: the engines, no windows, no settings. Installed for as long as it lives, with the
/// shared objects that a search needs.
class CliPlatform final : public Platform {
 public:
  /// `codePage` by name, empty for that of the locale; `language` 0 Chinese, 1 English. Raises for an unknown code
  /// page.
  CliPlatform(const std::string& codePage, int language);
  ~CliPlatform() override;

  std::unique_ptr<RegExp> NewRegExp() override;
  std::shared_ptr<XmlDocument> NewXmlDocument() override;
  std::unique_ptr<XmlTable> NewXmlTable(const XmlTableShape& shape) override;
  const CodePage& AnsiCodePage() override { return *codePage_; }
  CliLoop& Loop() override { return loop_; }
  Prompts& MessageBoxes() override { return prompts_; }
  App& TheApp() override { return app_; }
  NativeWindows& Windows() override;

 private:
  std::unique_ptr<CodePage> codePage_;
  CliLoop loop_;
  CliPrompts prompts_;
  App app_;
};

}  // namespace quorvane::cli
