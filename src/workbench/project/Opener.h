#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/model/Workbench.h"
#include "workbench/project/FileLoader.h"

namespace quorvane {
class CodePage;
}

namespace quorvane::workbench {

struct OpenedGroup {
  std::unique_ptr<Workbench> workbench;
  /// A line for each file that a project or group lists and that could not be opened; UTF-8, with the listing file and
  /// the name as listed.
  std::vector<std::string> warnings;
};

/// What of the named files is opened, and how.
struct OpenChoice {
  /// Of modules that it does not let through the header alone is kept; null: all are kept whole.
  std::shared_ptr<const Sieve> sieve;
  /// Whether the component with this path is taken; nothing: all are.
  std::function<bool(const std::string& path)> wanted;
  /// In which code page a file of a project is written, by the paths of both; with an empty module path the project
  /// file, with both empty a group file. Null, and nothing here: that of the workbench. The page outlives that.
  std::function<const CodePage*(const std::string& project, const std::string& module)> pageOf;
  bool byPath = false;  ///< projects and their components in the order of their paths, not as they are listed
};

/// Opens group files, project files and module files as one group, in their order. The module files together form a
/// project of their own, named "Project1" or with the first number that is free. A project that is named twice is
/// opened once. The active project is the first start-up project of a group file, else the first project. For a folder
/// stand the groups, projects and module files somewhere under it; of the module files those that no project lists.
///
/// Raises an error that names the file when one of `files` itself cannot be read. `page` outlives the workbench.
OpenedGroup OpenFiles(const std::vector<std::string>& files, const CodePage& page, const OpenChoice& choice = {});

/// The same into a workbench that may hold projects already; what could not be opened is returned. An error leaves the
/// workbench as it was. `progress` as in LoadFiles.
std::vector<std::string> OpenFilesInto(Workbench& workbench, const std::vector<std::string>& files,
                                       const LoadProgress& progress = {}, const OpenChoice& choice = {});

}  // namespace quorvane::workbench
