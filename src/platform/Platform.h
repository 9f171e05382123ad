#pragma once

#include <memory>

namespace quorvane {

class App;
class CodePage;
class MessageLoop;
class NativeWindows;
class Prompts;
class RegExp;
class XmlDocument;

/// Everything that the logic needs of the platform, in one place. A program installs its platform before it touches the
/// logic and keeps it until the last object of the logic is gone; so does each test.
class Platform {
 public:
  virtual ~Platform() = default;

  virtual std::unique_ptr<RegExp> NewRegExp() = 0;
  virtual std::shared_ptr<XmlDocument> NewXmlDocument() = 0;
  /// The system's ANSI code page; one object for the life of the platform.
  virtual const CodePage& AnsiCodePage() = 0;
  virtual MessageLoop& Loop() = 0;
  virtual Prompts& MessageBoxes() = 0;
  virtual App& TheApp() = 0;
  virtual NativeWindows& Windows() = 0;
};

/// The installed platform; error 91 when there is none.
Platform& ThePlatform();
/// Nothing to uninstall. The caller keeps ownership.
void InstallPlatform(Platform* platform);

}  // namespace quorvane
