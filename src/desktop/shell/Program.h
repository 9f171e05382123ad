#pragma once

namespace quorvane::desktop {

/// The program with windows: opens the files that `argv` names. Returns its exit status: 0, or 2 when it cannot start,
/// told in one line on standard error.
int Main(int argc, char** argv);

}  // namespace quorvane::desktop
