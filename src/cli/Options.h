#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "addin/search/ICondInfo.h"
#include "cli/PathGlobs.h"
#include "vbide/VBIDE.h"
#include "workbench/save/SaveJournal.h"

namespace quorvane::cli {

enum class Command { Find, Replace, List };

enum class Format { Lines, Vimgrep, Json, Xml, Count, Names };

enum class Color { Auto, Always, Never };

/// What the user asked for, checked as far as it can be without opening a file. Texts are UTF-8 as typed.
struct Options {
  Command command = Command::Find;
  std::string text;                ///< TEXT or PATTERN, without CR and LF; not empty but for list
  std::string replacement;         ///< without CR and LF
  std::vector<std::string> files;  ///< files and folders; the working directory where none was named
  PathGlobs globs;                 ///< of the components
  bool sortByPath = false;
  bool unique = false;                   ///< a file that several projects list is counted once
  bool quiet = false;                    ///< nothing is told but the exit status
  std::optional<std::int32_t> maxCount;  ///< matching lines told of each module at most
  std::int32_t before = 0;               ///< lines shown before a match, and after it
  std::int32_t after = 0;

  gsMode mode = gsCommon;
  gsArea area = gsAllProjects;
  std::string project;  ///< empty: not named
  std::string module;
  std::optional<vbide::Selection> at;  ///< the caret or selection that the area needs; lines and screen columns
  bool fileLines = false;              ///< the lines of `at` are those of the file on disk, else those of the module
  bool matchCase = false;
  bool wholeWord = false;
  bool singleLine = false;
  gsCommentStat comments = gsIncludeComment;

  Format format = Format::Lines;
  std::string xsl;
  std::string output;
  std::string codepage;  ///< empty: that of the locale
  std::int32_t language = 1;
  Color color = Color::Auto;
  bool write = false;
  bool writeOutside = false;  ///< files too that a project lists by an absolute path elsewhere
  std::optional<workbench::Recovery> recover;  ///< what becomes of a save that was cut short
  bool procedures = false;

  /// Options given that this command or mode does not look at, for a warning each.
  std::vector<std::string> unread;
};

/// Parses a command line. On a request for help or the version, prints it and gives the exit status in `status`, as on
/// an error, which is told on standard error.
std::optional<Options> ParseOptions(int argc, const char* const* argv, int& status);

}  // namespace quorvane::cli
