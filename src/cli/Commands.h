#pragma once

#include "cli/Options.h"

namespace quorvane::cli {

/// Each runs one command and gives the exit status; errors are raised.
int Find(const Options& options);
int Replace(const Options& options);
int List(const Options& options);

}  // namespace quorvane::cli
