#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "workbench/text/Sieve.h"

namespace quorvane::workbench {

/// A run of characters in one line: 0-based UTF-16 units, exclusive end.
struct LineMatch {
  std::size_t begin = 0;
  std::size_t end = 0;

  bool operator==(const LineMatch&) const = default;
};

struct MatchOptions {
  bool wholeWord = false;
  bool matchCase = false;
  bool patternSearch = false;

  bool operator==(const MatchOptions&) const = default;
};

/// A compiled search target. It knows one decoded line at a time and nothing of files or modules; it can be used again
/// and again, by one thread at a time.
class LineMatcher {
 public:
  virtual ~LineMatcher() = default;

  /// The first match that begins at `from` or after it and ends at `to` or before it; of those that begin there the
  /// longest. Never an empty one. What stands beside a match is read from the whole `line`. Offsets are 0-based,
  /// `from` <= `to` <= line.size().
  virtual bool Next(std::u16string_view line, std::size_t from, std::size_t to, LineMatch& match) const = 0;

  /// ASCII characters that stand side by side in every match, in either case unless the case has to match. Empty when
  /// there are none to rely on.
  virtual std::string_view AsciiRun() const = 0;

  /// True when every match holds a character beyond ASCII.
  virtual bool NeedsBeyondAscii() const = 0;
};

/// Raises error 93 when `target` is no valid pattern.
std::unique_ptr<LineMatcher> MakeLineMatcher(std::u16string_view target, const MatchOptions& options);

/// What lets a file through in which that matcher may match.
Sieve SieveOf(const LineMatcher& matcher, const MatchOptions& options);

}  // namespace quorvane::workbench
