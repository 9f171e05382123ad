#include "cli/Diagnostics.h"

#include <iostream>
#include <string>

#include "cli/RawOutput.h"

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
  RawOutput(RawOutput::kStandardError).Write(line + '\n');
}

}  // namespace

void TellError(std::string_view message) {
  Tell("", message);
}

void TellWarning(std::string_view message) {
  Tell("warning: ", message);
}

Error WhereItHappened(const Error& error, const std::u16string& module) {
  constexpr std::int32_t firstSyntaxError = 5016;  // of the regular expressions
  constexpr std::int32_t lastSyntaxError = 5021;
  const bool aboutCondition = error.Number < 0 ||
                              error.Number == static_cast<std::int32_t>(ErrorNumber::InvalidPattern) ||
                              (error.Number >= firstSyntaxError && error.Number <= lastSyntaxError);
  return aboutCondition || module.empty() ? error : Error(error.Number, module + u": " + error.Description);
}

}  // namespace quorvane::cli
