#include "native/files/Leftovers.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <string_view>
#include <system_error>

#include "base/FilePath.h"
#include "native/files/ProcessMark.h"

namespace quorvane::native {

namespace fs = std::filesystem;

namespace {

/// Leaves room for the rest of a temporary name within the 255 bytes of a file name. A name is cut between characters.
constexpr std::size_t kLongestName = 180;
constexpr std::size_t kRandomPart = 6;

/// Whether `name` is "<prefix><mark>-XXXXXX" of a process that has ended.
bool IsLeft(std::string_view name, std::string_view prefix) {
  if (!name.starts_with(prefix)) return false;
  name.remove_prefix(prefix.size());
  if (name.size() <= kRandomPart + 1 || name[name.size() - kRandomPart - 1] != '-') return false;
  return SurelyEnded(name.substr(0, name.size() - kRandomPart - 1));
}

void Sweep(const fs::path& folder, const std::set<std::string>& prefixes) {
  std::error_code failed;
  if (fs::exists(folder / kSaveJournalName, failed) || failed) return;
  std::vector<fs::path> left;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end; entry.increment(failed)) {
    const std::string name = PathText(entry->path().filename());
    if (!name.starts_with('.')) continue;
    if (std::ranges::none_of(prefixes, [&name](const std::string& prefix) { return IsLeft(name, prefix); })) continue;
    if (std::error_code unknown; fs::is_regular_file(entry->symlink_status(unknown))) left.push_back(entry->path());
  }
  for (const fs::path& path : left) fs::remove(path, failed);
}

}  // namespace

std::string TemporaryPrefix(const std::string& target) {
  const fs::path path = FilePath(target);
  const std::string name = PathText(path.filename());
  std::size_t end = std::min(name.size(), kLongestName);
  while (end < name.size() && end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) --end;
  return PathText(path.parent_path() / FilePath("." + name.substr(0, end) + ".quorvane-"));
}

void RemoveLeftovers(const std::vector<std::string>& targets) {
  std::map<fs::path, std::set<std::string>> folders;
  for (const std::string& target : targets) {
    const fs::path prefix = FilePath(TemporaryPrefix(target));
    folders[prefix.has_parent_path() ? prefix.parent_path() : fs::path(".")].insert(PathText(prefix.filename()));
  }
  for (const auto& [folder, prefixes] : folders) Sweep(folder, prefixes);
}

}  // namespace quorvane::native
