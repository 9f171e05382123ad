#include "platform/App.h"

#include <cstdlib>

#include "base/Text.h"

#ifndef QUORVANE_PROJECT_HOST
#define QUORVANE_PROJECT_HOST "example.invalid"
#endif

namespace quorvane {

App::App() : Title(kStartingTitle), Major(QUORVANE_MAJOR), Minor(QUORVANE_MINOR), Revision(QUORVANE_REVISION) {
  const char* chosen = std::getenv("QUORVANE_PROJECT_HOST");
  ProjectHost = FromUtf8(chosen != nullptr && *chosen != '\0' ? chosen : QUORVANE_PROJECT_HOST);
}

bool App::HasProjectHost() const {
  return !ProjectHost.empty() && ProjectHost != u"example.invalid";
}

std::u16string App::FileBeside(const std::u16string& name) const {
  if (Path.empty()) return name;
  const bool separated = Path.back() == u'/' || Path.back() == u'\\';
  const char16_t separator = Path.find(u'\\') != std::u16string::npos ? u'\\' : u'/';
  return separated ? Path + name : Path + separator + name;
}

}  // namespace quorvane
