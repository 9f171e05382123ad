#include "cli/Cli.h"

int main(int argc, char** argv) {
  return quorvane::cli::Main(argc, argv);
}
