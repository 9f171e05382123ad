#pragma once

#include <string>
#include <vector>

namespace quorvane::native {

/// Of a save of several files, beside each of them: how to end it where it was cut short.
inline constexpr char kSaveJournalName[] = ".quorvane-save";

/// What the names of temporary files for `target` begin with, its folder included. UTF-8.
std::string TemporaryPrefix(const std::string& target);

/// Removes the temporary files beside each of `targets`, and for it, that a process left which has surely ended; no
/// other file. Where a save of several files was cut short all stay, for they are needed to end it. Raises nothing.
void RemoveLeftovers(const std::vector<std::string>& targets);

}  // namespace quorvane::native
