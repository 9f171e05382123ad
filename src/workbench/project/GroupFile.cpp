#include "workbench/project/GroupFile.h"

#include "base/Text.h"
#include "workbench/project/KeyLines.h"

namespace quorvane::workbench {

GroupFile GroupFile::Parse(std::string_view bytes, const CodePage& page) {
  GroupFile file;
  for (const KeyLine& line : ReadKeyLines(bytes, page)) {
    const bool startUp = EqualsNoCaseAscii(line.key, u"StartupProject");
    if (!startUp && !EqualsNoCaseAscii(line.key, u"Project")) continue;
    const std::u16string_view path = Unquoted(line.value);
    if (path.empty()) continue;
    if (startUp && !file.startUp) file.startUp = file.projects.size();
    file.projects.emplace_back(path);
  }
  return file;
}

}  // namespace quorvane::workbench
