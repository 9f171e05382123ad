#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {
class CodePage;
}

namespace quorvane::workbench {

/// What a group file (.vbg) lists.
struct GroupFile {
  std::vector<std::u16string> projects;  ///< Windows paths as listed, relative to the group file's folder
  std::optional<std::size_t> startUp;    ///< 0-based place of the start-up project

  /// Takes any bytes; lines that it does not know are left out.
  static GroupFile Parse(std::string_view bytes, const CodePage& page);
};

}  // namespace quorvane::workbench
