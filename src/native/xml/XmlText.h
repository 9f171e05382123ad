#pragma once

#include <string>
#include <string_view>

namespace quorvane::native {

/// The UTF-8 that the XML library stores for a text, in place of what `out` held; NUL and unpaired surrogates become
/// U+FFFD.
void ToXmlText(std::u16string_view text, std::string& out);

/// Appends what the library writes of a text outside of attributes. UTF-8.
void AppendEscapedText(std::string_view text, std::string& out);

/// Appends the text of well-formed UTF-8.
void AppendXmlText(std::string_view utf8, std::u16string& out);

}  // namespace quorvane::native
