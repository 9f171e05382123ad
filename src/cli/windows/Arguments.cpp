#include "cli/Arguments.h"

#include <windows.h>

#include <memory>
#include <string_view>

#include "base/Text.h"

namespace quorvane::cli {

std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count),
                                                              &LocalFree);
  std::vector<std::string> arguments;
  for (int i = 0; words && i < count; ++i) {
    const std::wstring_view word = words.get()[i];
    arguments.push_back(ToUtf8(std::u16string(word.begin(), word.end())));
  }
  return arguments;
}

}  // namespace quorvane::cli
