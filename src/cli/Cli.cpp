#include "cli/Cli.h"

#include <exception>

#include "cli/Commands.h"
#include "cli/Diagnostics.h"
#include "cli/ExitStatus.h"

namespace quorvane::cli {

namespace {

int Run(const Options& options) {
  switch (options.command) {
    case Command::Find:
      return Find(options);
    case Command::Replace:
      return Replace(options);
    case Command::List:
      return List(options);
  }
  return kStatusError;
}

}  // namespace

int Main(int argc, const char* const* argv) {
  int status = 0;
  const auto options = ParseOptions(argc, argv, status);
  if (!options) return status;
  try {
    return Run(*options);
  } catch (const std::exception& error) {
    TellError(error.what());
    return kStatusError;
  }
}

}  // namespace quorvane::cli
