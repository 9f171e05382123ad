#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/CodePage.h"

namespace quorvane::native {

/// The code page of a name such as "1252", "cp936", "Shift_JIS", "UTF-8"; case, "-" and "_" do not count. Raises error
/// 5 with the known names for one that is not known.
std::unique_ptr<CodePage> NewCodePage(std::string_view name);

/// The same page for every call with that name, in whatever spelling; it lives as long as the process.
const CodePage& SharedCodePage(std::string_view name);

/// The name of the user's ANSI code page: the system's own where it has one, else that which belongs to the language of
/// the environment's locale (LC_ALL, LC_CTYPE, LANG). "1252" when they tell nothing.
std::string CodePageOfLocale();

}  // namespace quorvane::native
