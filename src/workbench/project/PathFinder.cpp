#include "workbench/project/PathFinder.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "base/FilePath.h"
#include "base/Text.h"
#include "platform/CodePage.h"
#include "workbench/project/KeyLines.h"
#include "workbench/text/CaseFold.h"

namespace quorvane::workbench {

namespace {

namespace fs = std::filesystem;

/// Windows: a path with a drive or a server can name something on this machine, and a name in any case finds its file.
constexpr bool kOnWindows = fs::path::preferred_separator == '\\';

std::string Join(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

bool Exists(const std::string& path, bool asFolder) {
  std::error_code ignored;
  const fs::file_status found = fs::status(FilePath(path), ignored);
  return fs::exists(found) && (!asFolder || fs::is_directory(found));
}

/// The name of a file on disk as text: UTF-8, or else the bytes of the code page.
std::u16string DiskName(std::string_view bytes, const CodePage& page) {
  std::u16string text = FromUtf8(bytes);
  if (text.find(u'\uFFFD') == std::u16string::npos) return text;
  text.clear();
  page.Decode(bytes, text);
  return text;
}

std::u16string Folded(std::u16string_view name) {
  std::u16string folded(name);
  std::ranges::transform(folded, folded.begin(), CaseFold::Of);
  return folded;
}

bool wholePaths = false;

/// Only leading `..` elements may stand in `path`, or none: without symbolic links there is then no difference between
/// the name of a folder and the way to it.
std::string Lexical(const std::string& path) {
  std::error_code failed;
  const fs::path here = fs::current_path(failed);
  if (failed) return path;
  const fs::path straight = (here / FilePath(path)).lexically_normal();
  const fs::path shown = straight.lexically_relative(here);
  if (wholePaths || shown.empty()) return PathText(straight);  // another drive
  return shown == "." ? std::string() : PathText(shown);
}

/// Splits a Windows path; `.` and what a later `..` takes back are gone. `climbs` counts the `..` that are left.
std::vector<std::u16string_view> Names(std::u16string_view path, int& climbs) {
  std::vector<std::u16string_view> names;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of(u"\\/"), path.size());
    const std::u16string_view name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (name.empty() || name == u".") continue;
    if (name != u"..") {
      names.push_back(name);
    } else if (names.empty()) {
      ++climbs;
    } else {
      names.pop_back();
    }
  }
  return names;
}

}  // namespace

bool IsAbsolutePath(std::u16string_view windowsPath) {
  const std::u16string_view path = TrimSpace(windowsPath);
  return path.starts_with(u'\\') || path.starts_with(u'/') || (path.size() > 1 && path[1] == u':');
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return {};
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string FileNameOf(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

void ShowWholePaths() {
  wholePaths = true;
}

std::string ShownPath(const std::string& path) {
  fs::path straight = FilePath(path);
  if (path.find("..") != std::string::npos) {  // a way up out of a symbolic link is not the way that led into it
    std::error_code failed;
    const fs::path folder = fs::canonical(straight.has_parent_path() ? straight.parent_path() : ".", failed);
    if (!failed && straight.filename() != "..") straight = folder / straight.filename();
  }
  return Lexical(PathText(straight));
}

std::string PathFinder::Find(const std::string& folder, std::u16string_view windowsPath) {
  const std::u16string_view path = TrimSpace(windowsPath);
  if (path.empty() || path.find(u'\0') != std::u16string_view::npos) return {};
  if (IsAbsolutePath(path) && !path.starts_with(u'/')) {
    return kOnWindows && Exists(ToUtf8(path), false) ? PathText(FilePath(ToUtf8(path))) : std::string();
  }
  int climbs = 0;
  const std::vector<std::u16string_view> names = Names(path, climbs);
  if (names.empty()) return {};
  std::string start = path.starts_with(u'/') ? "/" : folder;
  for (; climbs > 0; --climbs) start = Parent(start);
  std::string written = start;
  for (const std::u16string_view name : names) written = Join(written, ToUtf8(name));
  std::string found = !kOnWindows && Exists(written, false) ? written : Walk(start, names, 0);
  if (kOnWindows && found.empty() && Exists(written, false)) found = written;  // a short name
  if (!found.starts_with("..")) return found;
  const std::string itsFolder = FolderOf(found);
  const auto [known, isNew] = shown_.try_emplace(itsFolder);
  if (isNew) known->second = Lexical(itsFolder);
  return Join(known->second, FileNameOf(found));
}

std::string PathFinder::Walk(const std::string& folder, const std::vector<std::u16string_view>& names, std::size_t at) {
  if (at == names.size()) return folder;
  const std::string written = ToUtf8(names[at]);
  if (!kOnWindows) {
    if (std::string found = WalkInto(folder, written, names, at); !found.empty()) return found;
  }
  const auto [begin, end] = List(folder).equal_range(Folded(names[at]));
  for (auto entry = begin; entry != end; ++entry) {
    if (!kOnWindows && entry->second == written) continue;
    if (std::string found = WalkInto(folder, entry->second, names, at); !found.empty()) return found;
  }
  return {};
}

std::string PathFinder::WalkInto(const std::string& folder, const std::string& name,
                                 const std::vector<std::u16string_view>& names, std::size_t at) {
  const std::string way = Join(folder, name);
  return Exists(way, at + 1 < names.size()) ? Walk(way, names, at + 1) : std::string();
}

const std::string& PathFinder::Parent(const std::string& folder) {
  const auto [known, isNew] = parents_.try_emplace(folder);
  if (!isNew) return known->second;
  std::error_code failed;
  if (!folder.empty() && fs::is_symlink(FilePath(folder), failed)) {
    const fs::path real = fs::canonical(FilePath(folder), failed);
    if (!failed) return known->second = ShownPath(PathText(real.parent_path()));
  }
  if (folder.empty() || folder == ".." || folder.ends_with("/..")) {
    known->second = Join(folder, "..");
  } else {
    known->second = folder == "/" ? folder : FolderOf(folder);
  }
  return known->second;
}

const PathFinder::Listing& PathFinder::List(const std::string& folder) {
  const auto [known, isNew] = listings_.try_emplace(folder);
  if (!isNew) return known->second;
  std::error_code failed;
  std::vector<std::string> names;
  for (fs::directory_iterator at(folder.empty() ? "." : FilePath(folder), failed), end; !failed && at != end;
       at.increment(failed)) {
    names.push_back(PathText(at->path().filename()));
  }
  std::ranges::sort(names);  // of names that differ in case alone, the same one comes first on every file system
  for (std::string& name : names) {
    std::u16string folded = Folded(DiskName(name, page_));
    known->second.emplace(std::move(folded), std::move(name));
  }
  return known->second;
}

}  // namespace quorvane::workbench
