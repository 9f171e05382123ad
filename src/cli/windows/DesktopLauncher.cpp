// There is no desktop of its own here: the add-in shows its windows in the real host.
#include "cli/DesktopLauncher.h"

#include "cli/Diagnostics.h"
#include "cli/ExitStatus.h"

namespace quorvane::cli {

bool WantsDesktop(int argc, const char* const*) {
  return argc < 2;
}

int LaunchDesktop(char* const*) {
  TellError("no command (find, replace, list); 'quorvane --help' tells of them");
  return kStatusError;
}

}  // namespace quorvane::cli
