#include "cli/Cli.h"
#include "cli/DesktopLauncher.h"

int main(int argc, char** argv) {
  if (quorvane::cli::WantsDesktop(argc, argv)) return quorvane::cli::LaunchDesktop(argv);
  return quorvane::cli::Main(argc, argv);
}
