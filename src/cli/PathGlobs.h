#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::cli {

/// Whether `glob` matches the whole of `text`, UTF-8 with '/' between names; upper and lower case of ASCII letters are
/// alike, as in the file names of a project. `?` stands for one character, `*` for any number, neither for '/'; `**`
/// for '/' too; `[a-c]` and `[!a-c]` for one of a set or another one. A set that does not end is taken as it stands.
bool MatchesGlob(std::string_view glob, std::string_view text);

/// Chooses files by their paths, as the options --include and --exclude say.
struct PathGlobs {
  std::vector<std::string> include;  ///< empty: all
  std::vector<std::string> exclude;

  bool Empty() const { return include.empty() && exclude.empty(); }
  /// A glob speaks of the file or of a folder on its path. One without '/' is held against their names alone, any other
  /// against the path to them, or what of it follows a '/'.
  bool Wants(std::string_view path) const;
};

}  // namespace quorvane::cli
