#pragma once

#include <memory>
#include <string>
#include <vector>

namespace quorvane {

namespace workbench {
class Component;
}

namespace desktop {

/// The edits of several modules as one file for the patch program.
struct Patch {
  std::string folder;  ///< in which `patch -p0` is to be run: the deepest one that holds all the files; UTF-8
  std::string bytes;   ///< with the lines in the code pages of their files

  /// Of the files of `components`, each file once, as a save would write them. Raises error 5 for a character that the
  /// code page lacks.
  static Patch Of(const std::vector<std::shared_ptr<workbench::Component>>& components);
};

}  // namespace desktop
}  // namespace quorvane
