#pragma once

namespace quorvane::cli {

/// Whether the arguments ask for the program with windows: there are none, or the first is no command and no option of
/// the command line.
bool WantsDesktop(int argc, const char* const* argv);

/// Runs the program with windows, which lies beside this one, in the place of this process, with the same arguments.
/// Returns only when that fails, or when the first argument is no option and no file either, so that it must be a
/// command misspelt; which is told. Returns the exit status then.
int LaunchDesktop(char* const* argv);

}  // namespace quorvane::cli
