#include "workbench/project/FolderFiles.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/FilePath.h"
#include "workbench/project/FileKind.h"

namespace quorvane::workbench {

namespace {

namespace fs = std::filesystem;

void AddFile(FolderFiles& files, std::string path) {
  const std::optional<FileKind> kind = FileKind::OfName(path);
  if (!kind) return;
  switch (kind->role) {
    case FileKind::Role::ProjectGroup:
      return files.groups.push_back(std::move(path));
    case FileKind::Role::Project:
      return files.projects.push_back(std::move(path));
    case FileKind::Role::Component:
      if (HoldsCode(kind->type)) files.modules.push_back(std::move(path));
  }
}

void Walk(FolderFiles& files, const fs::path& folder, const std::string& prefix) {
  std::error_code failed;
  fs::directory_iterator at(folder, failed);
  for (; !failed && at != fs::directory_iterator(); at.increment(failed)) {
    const std::string name = PathText(at->path().filename());
    if (name.starts_with('.')) continue;
    std::error_code unknown;
    if (at->is_directory(unknown)) {
      if (!at->is_symlink(unknown)) Walk(files, at->path(), prefix + name + '/');
    } else if (at->is_regular_file(unknown)) {
      AddFile(files, prefix + name);
    }
  }
  if (failed) files.unreadable.push_back((prefix.empty() ? "." : prefix) + ": " + failed.message());
}

}  // namespace

FolderFiles FolderFiles::Under(const std::string& folder) {
  FolderFiles files;
  const bool separated = folder.empty() || folder.ends_with('/');
  Walk(files, folder.empty() ? "." : FilePath(folder), separated ? folder : folder + '/');
  for (auto* paths : {&files.groups, &files.projects, &files.modules}) std::ranges::sort(*paths);
  return files;
}

}  // namespace quorvane::workbench
