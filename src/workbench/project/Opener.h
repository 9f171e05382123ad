#pragma once

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

/// Opens group files, project files and module files as one group, in their order. The module files together form a
/// project of their own, named "Project1" or with the first number that is free. A project that is named twice is
/// opened once. The active project is the first start-up project of a group file, else the first project.
///
/// Raises an error that names the file when one of `files` itself cannot be read. `page` outlives the workbench. Of
/// modules that `sieve`, which may be null, does not let through the header alone is kept.
OpenedGroup OpenFiles(const std::vector<std::string>& files, const CodePage& page,
                      const std::shared_ptr<const Sieve>& sieve = nullptr);

/// The same into a workbench that may hold projects already; what could not be opened is returned. An error leaves the
/// workbench as it was. `progress` as in LoadFiles.
std::vector<std::string> OpenFilesInto(Workbench& workbench, const std::vector<std::string>& files,
                                       const LoadProgress& progress = {},
                                       const std::shared_ptr<const Sieve>& sieve = nullptr);

}  // namespace quorvane::workbench
