#pragma once

#include <string>
#include <vector>

#include "cli/CliPlatform.h"
#include "cli/Options.h"
#include "workbench/project/Opener.h"

namespace quorvane::cli {

/// One run of the program: its platform, and the files of the user open in the embedded host.
class Session {
 public:
  /// Opens the files; warns of those that are missing. Raises as OpenFiles does.
  explicit Session(const Options& options);

  CliPlatform& ThePlatform() { return platform_; }
  workbench::Workbench& Host() { return *group_.workbench; }

  /// Makes the active project, code pane and selection, and the live condition, what the options say. Raises an error
  /// for a project or module that the area needs and that is not there or not the only one of its name.
  void Apply(const Options& options);

  /// Raises an error when the output is one of the open files: results do not overwrite what they tell of.
  void CheckOutput(const Options& options);

 private:
  void ActivateProject(const Options& options);
  void ActivateModule(const Options& options);
  std::vector<std::shared_ptr<workbench::Component>> ModulesNamed(const Options& options);

  CliPlatform platform_;
  workbench::OpenedGroup group_;
};

}  // namespace quorvane::cli
