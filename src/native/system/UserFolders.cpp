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

std::string UserFolder(const char* variable, const char* belowHome) {
  const std::string chosen = Variable(variable);
  const bool absolute = chosen.starts_with('/');  // a relative one counts for nothing
  return (absolute ? chosen : HomeFolder() + belowHome) + "/quorvane";
}

}  // namespace

std::string ProgramFolder() {
  std::error_code failed;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
  return failed ? std::string() : program.parent_path().string();
}

std::string ConfigFolder() {
  return UserFolder("XDG_CONFIG_HOME", "/.config");
}

std::string DataFolder() {
  return UserFolder("XDG_DATA_HOME", "/.local/share");
}

}  // namespace quorvane::native
