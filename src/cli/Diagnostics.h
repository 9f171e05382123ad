#pragma once

#include <string_view>

namespace quorvane::cli {

/// One plain line on standard error each; line breaks inside the text become blanks.
void TellError(std::string_view message);
void TellWarning(std::string_view message);

}  // namespace quorvane::cli
