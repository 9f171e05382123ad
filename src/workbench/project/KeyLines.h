#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {
class CodePage;
}

namespace quorvane::workbench {

/// One `key=value` line. Blanks and tabs around both are gone; quotes are not.
struct KeyLine {
  std::u16string key;
  std::u16string value;
};

/// The `key=value` lines of a project or group file before its first section, with any of the three line ends. Lines
/// without `=` are left out. A file that begins with the UTF-8 byte order mark is UTF-8 whatever `page` is.
std::vector<KeyLine> ReadKeyLines(std::string_view bytes, const CodePage& page);

/// Without the quotes around it; one of the two may be missing.
std::u16string_view Unquoted(std::u16string_view value);

/// Without blanks and tabs at both ends.
std::u16string_view TrimSpace(std::u16string_view text);

}  // namespace quorvane::workbench
