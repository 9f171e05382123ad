#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vbide/VBIDE.h"

namespace quorvane {
class CodePage;
}

namespace quorvane::workbench {

/// What a project file (.vbp) says of the project's name and of its components.
struct ProjectFile {
  struct Entry {
    vbide::ComponentType type = vbide::ComponentType::StdModule;
    std::u16string name;  ///< empty where the file gives only a path
    std::u16string path;  ///< as listed: a Windows path, relative to the project file's folder
  };

  std::u16string name;  ///< empty when the file gives none
  std::vector<Entry> entries;

  /// Takes any bytes; lines that it does not know are left out.
  static ProjectFile Parse(std::string_view bytes, const CodePage& page);
};

}  // namespace quorvane::workbench
