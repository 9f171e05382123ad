#pragma once

#include <memory>

namespace quorvane {

class App;
class Clock;
class CodePage;
class ExceptionFilter;
class HttpRequest;
class MessageLoop;
class NativeWindows;
class PrivateProfile;
class Prompts;
class RegExp;
class RegistryStore;
class SettingsStore;
class Shell;
class XmlDocument;
class XmlTable;
struct XmlTableShape;

/// Everything that the logic needs of the platform, in one place. A program installs its platform before it touches the
/// logic and keeps it until the last object of the logic is gone; so does each test.
class Platform {
 public:
  virtual ~Platform() = default;

  virtual std::unique_ptr<RegExp> NewRegExp() = 0;
  virtual std::shared_ptr<XmlDocument> NewXmlDocument() = 0;
  virtual std::unique_ptr<XmlTable> NewXmlTable(const XmlTableShape& shape) = 0;
  /// The system's ANSI code page; one object for the life of the platform.
  virtual const CodePage& AnsiCodePage() = 0;
  virtual MessageLoop& Loop() = 0;
  virtual Prompts& MessageBoxes() = 0;
  virtual App& TheApp() = 0;
  virtual NativeWindows& Windows() = 0;

  // What only a program with windows has. A platform without one of them raises error 445 that names it.
  virtual SettingsStore& Settings();
  virtual RegistryStore& Registry();
  virtual std::unique_ptr<HttpRequest> NewHttpRequest();
  virtual Shell& TheShell();
  virtual Clock& TheClock();
  virtual ExceptionFilter& Faults();
  /// Null on a platform that keeps no INI files: the language then starts as it is built in and is not written.
  virtual PrivateProfile* Profile() { return nullptr; }
};

/// The installed platform; error 91 when there is none.
Platform& ThePlatform();
/// Nothing to uninstall. The caller keeps ownership.
void InstallPlatform(Platform* platform);

}  // namespace quorvane
