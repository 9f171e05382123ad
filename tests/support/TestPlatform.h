#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/App.h"
#include "platform/CodePage.h"
#include "platform/MessageLoop.h"
#include "platform/NativeWindows.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace quorvane::test {

/// A message loop that a test fills: DoEvents runs what was posted, in order, and counts itself.
class ScriptedLoop final : public MessageLoop {
 public:
  void DoEvents() override;

  /// Runs `work` in the next DoEvents.
  void Post(std::function<void()> work) { waiting_.push_back(std::move(work)); }

  int Yields = 0;
  std::function<void()> OnYield;  ///< runs in each DoEvents

 private:
  std::deque<std::function<void()>> waiting_;
};

/// Message boxes that a test answers beforehand. A box without an answer is a failure of the test.
class ScriptedPrompts final : public Prompts {
 public:
  struct Box {
    std::u16string text;
    int flags = 0;
    std::u16string caption;

    bool operator==(const Box&) const = default;
  };

  int MsgBox(const std::u16string& text, int flags, const std::u16string& caption) override;

  std::deque<int> Answers;
  std::vector<Box> Shown;
};

/// The platform of the tests: real engines, scripted everything else. Installed for as long as it lives, with the shared
/// objects that the logic reaches directly.
class TestPlatform final : public Platform {
 public:
  /// English texts; the code page by name.
  explicit TestPlatform(const std::string& codePage = "1252");
  ~TestPlatform() override;

  std::unique_ptr<RegExp> NewRegExp() override;
  std::shared_ptr<XmlDocument> NewXmlDocument() override;
  const CodePage& AnsiCodePage() override { return *codePage_; }
  MessageLoop& Loop() override { return loop; }
  Prompts& MessageBoxes() override { return prompts; }
  App& TheApp() override { return app; }
  NativeWindows& Windows() override;

  ScriptedLoop loop;
  ScriptedPrompts prompts;
  App app;
  NativeWindows* windows = nullptr;  ///< as a rule the workbench's; error 91 without

 private:
  std::unique_ptr<CodePage> codePage_;
};

}  // namespace quorvane::test
