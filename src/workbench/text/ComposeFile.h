#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/text/SourceFile.h"

namespace quorvane::workbench {

/// What a save will write, and what it had to give up.
struct ComposedFile {
  std::string bytes;
  /// Hidden lines that went with their declaration, as bytes of the file without line ends.
  std::vector<std::string> droppedHiddenLines;
};

/// Puts edited code back among the bytes of the file it came from. `canonical` holds, for each line of `baseline`, the
/// bytes that its text encodes to (which differ from the file's where a code page knows two spellings of a character);
/// `lines` the bytes of each line of code now, without line ends. Never raises.
///
/// A line that is the same before and after keeps its bytes of the file and its line end. A new line ends as the line
/// that it replaces, an inserted one as the line before it. The header stays. Where lines were added after a last line
/// without line end, that line gets one and the new last line has none; where that last line was deleted, the line
/// before it keeps its own end, since a line that stays keeps its bytes. An empty last line always has an end: without
/// one it would not be a line.
///
/// A hidden line stays after the declaration of the member that it names, also when that was rewritten, continued
/// over more lines or moved within the module, and takes over a new name of it; it goes when its declaration is gone.
/// Those before the first line of code stay there. Several after one line keep their order.
ComposedFile ComposeFile(const SourceFile& baseline, const std::vector<std::string_view>& canonical,
                         const std::vector<std::string_view>& lines);

}  // namespace quorvane::workbench
