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
  const std::size_t slash = target.rfind('/') + 1;
  std::size_t end = std::min(target.size(), slash + kLongestName);
  while (end < target.size() && end > slash && (static_cast<unsigned char>(target[end]) & 0xC0U) == 0x80U) --end;
  return target.substr(0, slash) + "." + target.substr(slash, end - slash) + ".quorvane-";
}

void RemoveLeftovers(const std::vector<std::string>& targets) {
  std::map<fs::path, std::set<std::string>> folders;
  for (const std::string& target : targets) {
    const std::string prefix = TemporaryPrefix(target);
    const std::size_t slash = prefix.rfind('/') + 1;
    folders[slash == 0 ? fs::path(".") : FilePath(prefix.substr(0, slash))].insert(prefix.substr(slash));
  }
  for (const auto& [folder, prefixes] : folders) Sweep(folder, prefixes);
}

}  // namespace quorvane::native
