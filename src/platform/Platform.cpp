#include "platform/Platform.h"

#include "base/Error.h"

namespace quorvane {

namespace {
Platform* thePlatform = nullptr;
}

Platform& ThePlatform() {
  return Deref(thePlatform);
}

void InstallPlatform(Platform* platform) {
  thePlatform = platform;
}

}  // namespace quorvane
