#pragma once

namespace quorvane::cli {

/// The command line. Results go to standard output, warnings and the one line of an error to standard error.
/// Exit status: 0 something found, replaced or listed; 1 nothing; 2 an error; 130 cancelled.
int Main(int argc, const char* const* argv);

}  // namespace quorvane::cli
