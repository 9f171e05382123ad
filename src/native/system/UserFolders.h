#pragma once

#include <string>

namespace quorvane::native {

/// Folder of the program's own file, without a slash at its end; empty when the system does not tell. UTF-8.
std::string ProgramFolder();

/// The user's folder for configuration files of this program: XDG_CONFIG_HOME or ~/.config, with the program's name. It
/// need not exist.
std::string ConfigFolder();

/// The same for what the program keeps on the user's behalf: XDG_DATA_HOME or ~/.local/share.
std::string DataFolder();

}  // namespace quorvane::native
