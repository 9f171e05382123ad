#include "native/system/UserFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace quorvane::native {

namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string HomeFolder() {
  const std::string home = Variable("HOME");
  if (!home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user != nullptr ? user->pw_dir : "";
}

}  // namespace

std::string ProgramFolder() {
  std::error_code failed;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
  return failed ? std::string() : program.parent_path().string();
}

std::string ConfigFolder() {
  const std::string chosen = Variable("XDG_CONFIG_HOME");
  const bool absolute = chosen.starts_with('/');  // a relative one counts for nothing
  return (absolute ? chosen : HomeFolder() + "/.config") + "/quorvane";
}

}  // namespace quorvane::native
