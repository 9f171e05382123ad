#include "desktop/review/Patch.h"

#include <filesystem>
#include <set>

#include "base/FilePath.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/save/UnifiedDiff.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::desktop {

namespace {

std::filesystem::path Absolute(const std::string& path) {
  return std::filesystem::absolute(FilePath(path)).lexically_normal();
}

std::filesystem::path CommonFolder(const std::filesystem::path& left, const std::filesystem::path& right) {
  std::filesystem::path common;
  for (auto a = left.begin(), b = right.begin(); a != left.end() && b != right.end() && *a == *b; ++a, ++b)
    common /= *a;
  return common;
}

}  // namespace

Patch Patch::Of(const std::vector<std::shared_ptr<workbench::Component>>& components) {
  std::filesystem::path folder;
  for (const auto& component : components) {
    const std::filesystem::path own = Absolute(component->Path()).parent_path();
    folder = folder.empty() ? own : CommonFolder(folder, own);
  }
  Patch patch{PathText(folder), {}};
  std::set<std::filesystem::path> done;
  for (const auto& component : components) {
    const std::filesystem::path path = Absolute(component->Path());
    if (!done.insert(path).second) continue;
    const workbench::Module& module = *component->TheModule();
    patch.bytes += workbench::UnifiedDiff(PathText(path.lexically_relative(folder)), module.Saved()->Bytes(),
                                          module.Compose().bytes);
  }
  return patch;
}

}  // namespace quorvane::desktop
