#pragma once

#include <cstdint>
#include <string>

namespace quorvane::native {

/// What this machine is known by, as far as processes are numbered together; two machines of one text are unlikely.
std::string MachineText();

/// The number of this process.
std::uint64_t ThisProcess();

/// When a process started, in ticks of the system's own; 0 when the system does not tell.
std::uint64_t StartOf(std::uint64_t process);

/// Whether the system says that there is no process of this number now.
bool IsNoProcess(std::uint64_t process);

}  // namespace quorvane::native
