#pragma once

#include <string>
#include <string_view>

#include "base/Error.h"

namespace quorvane::cli {

/// One plain line on standard error each; line breaks inside the text become blanks.
void TellError(std::string_view message);
void TellWarning(std::string_view message);

/// `error` with the module before its text in which the search or replace was; as it is when it is about what the user
/// asked for and not about a module.
Error WhereItHappened(const Error& error, const std::u16string& module);

}  // namespace quorvane::cli
