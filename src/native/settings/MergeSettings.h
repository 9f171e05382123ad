#pragma once

#include <set>
#include <string>
#include <vector>

#include "native/settings/SettingsFile.h"

namespace quorvane::native {

/// What two programs made of the same settings, in one: `theirs` with what `mine` changed since `base`, key by key. A
/// value that both changed is mine; under a key of `lists`, whose values are lines with the newest in front, lines of
/// theirs that are neither in `base` nor in mine follow mine.
std::vector<SettingsFile::Section> MergeSettings(const std::vector<SettingsFile::Section>& base,
                                                 const std::vector<SettingsFile::Section>& mine,
                                                 const std::vector<SettingsFile::Section>& theirs,
                                                 const std::set<std::u16string>& lists);

}  // namespace quorvane::native
