#include <vector>

#include "cli/Arguments.h"
#include "cli/Cli.h"
#include "cli/DesktopLauncher.h"

int main(int argc, char** argv) {
  std::vector<std::string> words = quorvane::cli::Arguments(argc, argv);
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const int count = static_cast<int>(words.size());
  if (quorvane::cli::WantsDesktop(count, arguments.data())) return quorvane::cli::LaunchDesktop(arguments.data());
  return quorvane::cli::Main(count, arguments.data());
}
