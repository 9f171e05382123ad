#include "platform/Platform.h"

#include <string>

#include "base/Error.h"
#include "platform/HttpRequest.h"

namespace quorvane {

namespace {
Platform* thePlatform = nullptr;

[[noreturn]] void RaiseMissing(const std::u16string& what) {
  RaiseError(ErrorNumber::ActionNotSupported, ErrorText(ErrorNumber::ActionNotSupported) + u": " + what);
}

}  // namespace

SettingsStore& Platform::Settings() {
  RaiseMissing(u"settings store");
}
RegistryStore& Platform::Registry() {
  RaiseMissing(u"registry");
}
std::unique_ptr<HttpRequest> Platform::NewHttpRequest() {
  RaiseMissing(u"web requests");
}
Shell& Platform::TheShell() {
  RaiseMissing(u"opening an address");
}
Clock& Platform::TheClock() {
  RaiseMissing(u"clock");
}
ExceptionFilter& Platform::Faults() {
  RaiseMissing(u"exception filter");
}

Platform& ThePlatform() {
  return Deref(thePlatform);
}

void InstallPlatform(Platform* platform) {
  thePlatform = platform;
}

}  // namespace quorvane
