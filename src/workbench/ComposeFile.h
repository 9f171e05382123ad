#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/SourceFile.h"

namespace quorvane::workbench {

/// What a save will write, and what it had to give up.
struct ComposedFile {
  std::string bytes;
  /// Hidden lines that went with their declaration, as text of the file without line ends.
  std::vector<std::string> droppedHiddenLines;
};

/// Puts edited code back among the bytes of the file it came from. `canonical` holds, for each line of `baseline`, the
/// bytes that its text encodes to (which differ from the file's where a code page knows two spellings of a character);
/// `lines` the bytes of each line of code now. A line that is the same before and after keeps its bytes of the file and
/// its line end; a new line ends as its neighbours do; the header stays; a hidden line stays behind the line that it
/// stood behind, also when that line was rewritten, and takes over the new name of its member; it goes when its
/// declaration is gone.
ComposedFile ComposeFile(const SourceFile& baseline, const std::vector<std::string_view>& canonical,
                         const std::vector<std::string_view>& lines);

}  // namespace quorvane::workbench
