#pragma once

#include <string>

namespace quorvane::native {

/// Folder of the program's own file, without a slash at its end; empty when the system does not tell. UTF-8.
std::string ProgramFolder();

/// The user's folder for configuration files of this program: XDG_CONFIG_HOME or ~/.config, with the program's name. It
/// need not exist.
std::string ConfigFolder();

}  // namespace quorvane::native
