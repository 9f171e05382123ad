#pragma once

namespace quorvane::cli {

/// Whether the arguments ask for the program with windows: there are none, or the first is no command and no option of
/// the command line. A first argument that is neither a command, an option nor a file is left to the command line, which
/// tells of it.
bool WantsDesktop(int argc, const char* const* argv);

/// Runs the program with windows, which lies beside this one, in the place of this process, with the same arguments.
/// Returns only when that fails, which is told: the exit status.
int LaunchDesktop(char* const* argv);

}  // namespace quorvane::cli
