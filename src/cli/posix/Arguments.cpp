#include "cli/Arguments.h"

namespace quorvane::cli {

std::vector<std::string> Arguments(int argc, char** argv) {
  return {argv, argv + argc};
}

}  // namespace quorvane::cli
