#pragma once

/// The last line of defence, for faults that no handler sees: asks the user what to do.
namespace quorvane::ModSEH {

/// True puts the filter in force and remembers the one before; false puts that one back.
void InstallFilter(bool enable);

}  // namespace quorvane::ModSEH
