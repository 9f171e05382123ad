#pragma once

#include <string>
#include <vector>

namespace quorvane::cli {

/// What the program was called with, in UTF-8 whatever code page the system hands it over in; the first is the
/// program's name. `argc` and `argv` as main gets them.
std::vector<std::string> Arguments(int argc, char** argv);

}  // namespace quorvane::cli
