#pragma once

#include <string>
#include <vector>

namespace quorvane::workbench {

/// The project groups, projects and module files somewhere under a folder, each kind in the order of its paths. Names
/// that begin with a full stop are left out, and links to folders are not followed.
struct FolderFiles {
  std::vector<std::string> groups;
  std::vector<std::string> projects;
  std::vector<std::string> modules;
  std::vector<std::string> unreadable;  ///< a line for each folder that could not be listed: its path and why

  /// The paths begin with `folder` as written; empty stands for the working directory and begins none.
  static FolderFiles Under(const std::string& folder);
};

}  // namespace quorvane::workbench
