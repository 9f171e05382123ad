#include "cli/DesktopLauncher.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "cli/Diagnostics.h"
#include "cli/ExitStatus.h"
#include "native/system/UserFolders.h"

namespace quorvane::cli {

namespace {

constexpr std::array<std::string_view, 6> kOwn = {"find", "replace", "list", "--help", "-h", "--version"};
}  // namespace

bool WantsDesktop(int argc, const char* const* argv) {
  if (argc < 2) return true;
  return std::ranges::find(kOwn, std::string_view(argv[1])) == kOwn.end();
}

int LaunchDesktop(char* const* argv) {
  const std::string_view first = argv[0] != nullptr && argv[1] != nullptr ? argv[1] : "-";
  std::error_code failed;
  if (!first.starts_with('-') && !std::filesystem::exists(first, failed)) {
    TellError(std::string(first) + ": neither a command (find, replace, list) nor a file");
    return kStatusError;
  }
  const std::string program = native::ProgramFolder() + "/quorvane-desktop";
  execv(program.c_str(), argv);
  TellError(program + ": " + std::strerror(errno) + "; 'quorvane --help' tells of the command line");
  return kStatusError;
}

}  // namespace quorvane::cli
