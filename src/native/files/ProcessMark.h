#pragma once

#include <string>
#include <string_view>

namespace quorvane::native {

/// A name for this process that no other on this machine has, not even one with the same number later. It has the form
/// that a file name takes and no '.'; empty where the system does not tell.
const std::string& ProcessMark();

/// Whether it is certain that the process of a mark has ended: not for a mark of another machine, nor for a text that
/// is none.
bool SurelyEnded(std::string_view mark);

}  // namespace quorvane::native
