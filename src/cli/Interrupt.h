#pragma once

namespace quorvane::cli {

/// Ctrl-C asks for a cancel; a second one ends the process.
void CatchInterrupt();
bool Interrupted();

}  // namespace quorvane::cli
