#pragma once

namespace quorvane::cli {

/// Ctrl-C, a request to end and the end of the session ask for a cancel; a second one ends the process.
void CatchInterrupt();
bool Interrupted();
/// What the process says of itself when it ends for that.
int InterruptStatus();

}  // namespace quorvane::cli
