#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {
class CodePage;
}

namespace quorvane::workbench {

/// Finds on disk what Windows paths name: backslashes, `..`, names that differ from the disk's in case, and names that
/// stand on disk in the bytes of the code page instead of UTF-8. A name as written wins over one that differs in case.
/// Folders are listed once and only when a name as written is not there.
class PathFinder {
 public:
  explicit PathFinder(const CodePage& page) : page_(page) {}

  /// `folder` is on disk, empty for the working directory. The result is the path as found, or empty when there is
  /// nothing of that name. Paths with a drive or a server belong to another machine and are not found, but on Windows.
  std::string Find(const std::string& folder, std::u16string_view windowsPath);

 private:
  using Listing = std::multimap<std::u16string, std::string>;  ///< folded name, name on disk

  std::string Walk(const std::string& folder, const std::vector<std::u16string_view>& names, std::size_t at);
  std::string WalkInto(const std::string& folder, const std::string& name,
                       const std::vector<std::u16string_view>& names, std::size_t at);
  const std::string& Parent(const std::string& folder);
  const Listing& List(const std::string& folder);

  const CodePage& page_;
  std::map<std::string, Listing> listings_;
  std::map<std::string, std::string> parents_;
  std::map<std::string, std::string> shown_;  ///< folder outside the working directory, as it is shown
};

/// Whether a Windows path names its file from the root of a file system, a drive or a server on.
bool IsAbsolutePath(std::u16string_view windowsPath);
/// The folder that a file stands in; empty for the working directory.
std::string FolderOf(const std::string& path);
/// The last name of a path.
std::string FileNameOf(const std::string& path);
/// `path` as it is shown: relative to the working directory or whole, without detours.
std::string ShownPath(const std::string& path);
/// From now on paths are shown whole, as a program with windows does whose user does not know where it was started;
/// without this, relative to the working directory, as other tools of a command line show them.
void ShowWholePaths();

}  // namespace quorvane::workbench
