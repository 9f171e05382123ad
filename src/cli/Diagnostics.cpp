#include "cli/Diagnostics.h"

#include <iostream>
#include <string>

namespace quorvane::cli {

namespace {

void Tell(std::string_view kind, std::string_view message) {
  std::string line = "quorvane: ";
  line += kind;
  for (const char c : message) {
    const bool lineBreak = c == '\n' || c == '\r';
    if (!lineBreak || (!line.empty() && line.back() != ' ')) line += lineBreak ? ' ' : c;
  }
  while (line.back() == ' ') line.pop_back();
  std::cout.flush();
  std::cerr << line << '\n';
}

}  // namespace

void TellError(std::string_view message) {
  Tell("", message);
}

void TellWarning(std::string_view message) {
  Tell("warning: ", message);
}

}  // namespace quorvane::cli
