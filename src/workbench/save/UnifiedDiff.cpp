#include "workbench/save/UnifiedDiff.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>
#include <vector>

#include "workbench/text/LineDiff.h"

namespace quorvane::workbench {

// The hunks of LineDiff in the form that patch reads: hunks whose context lines would meet are written as one, each
// line keeps its own line end, and a last line without one is marked. Names with odd characters are quoted as patch
// expects.

namespace {

constexpr std::int32_t kContext = 3;

/// Lines with their LF, so that a last line without one differs from the same line with one.
std::vector<std::string_view> LinesOf(std::string_view bytes) {
  std::vector<std::string_view> lines;
  while (!bytes.empty()) {
    const std::size_t feed = bytes.find('\n');
    const std::size_t length = feed == std::string_view::npos ? bytes.size() : feed + 1;
    lines.push_back(bytes.substr(0, length));
    bytes.remove_prefix(length);
  }
  return lines;
}

std::string Quoted(const std::string& path) {
  const auto isOdd = [](char c) {
    return static_cast<unsigned char>(c) <= ' ' || c == '"' || c == '\\' || c == '\x7f';
  };
  if (std::none_of(path.begin(), path.end(), isOdd)) return path;
  static constexpr std::string_view kPlain = "\a\b\t\n\v\f\r\"\\";
  static constexpr std::string_view kEscaped = "abtnvfr\"\\";
  std::string quoted = "\"";
  for (const char c : path) {
    if (const std::size_t known = kPlain.find(c); known != std::string_view::npos) {
      quoted += '\\';
      quoted += kEscaped[known];
    } else if (isOdd(c) && c != ' ') {
      std::array<char, 8> octal{};
      std::snprintf(octal.data(), octal.size(), "\\%03o", static_cast<unsigned>(static_cast<unsigned char>(c)));
      quoted += octal.data();
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

/// `begin` is 0-based; of an empty range patch wants the line before it.
std::string Range(std::int32_t begin, std::int32_t end) {
  const std::int32_t count = end - begin;
  const std::string start = std::to_string(count == 0 ? begin : begin + 1);
  return count == 1 ? start : start + ',' + std::to_string(count);
}

class DiffWriter {
 public:
  DiffWriter(const std::string& before, const std::string& after)
      : before_(LinesOf(before)), after_(LinesOf(after)), hunks_(DiffLines(before_, after_)) {}

  std::string Write(const std::string& path) {
    if (hunks_.empty()) return {};
    const std::string name = Quoted(path);
    out_ = "--- " + name + "\n+++ " + name + '\n';
    for (std::size_t first = 0; first < hunks_.size();) {
      std::size_t last = first;
      while (last + 1 < hunks_.size() && hunks_[last + 1].beforeBegin - hunks_[last].beforeEnd <= 2 * kContext) ++last;
      WriteGroup(first, last);
      first = last + 1;
    }
    return std::move(out_);
  }

 private:
  /// Hunks whose contexts meet become one.
  void WriteGroup(std::size_t first, std::size_t last) {
    const DiffHunk& head = hunks_[first];
    const DiffHunk& tail = hunks_[last];
    const std::int32_t lead = std::min(kContext, head.beforeBegin);
    const std::int32_t trail = std::min(kContext, static_cast<std::int32_t>(before_.size()) - tail.beforeEnd);
    out_ += "@@ -" + Range(head.beforeBegin - lead, tail.beforeEnd + trail) + " +" +
            Range(head.afterBegin - lead, tail.afterEnd + trail) + " @@\n";
    std::int32_t line = head.beforeBegin - lead;
    for (std::size_t i = first; i <= last; ++i) {
      WriteLines(' ', before_, line, hunks_[i].beforeBegin);
      WriteLines('-', before_, hunks_[i].beforeBegin, hunks_[i].beforeEnd);
      WriteLines('+', after_, hunks_[i].afterBegin, hunks_[i].afterEnd);
      line = hunks_[i].beforeEnd;
    }
    WriteLines(' ', before_, line, line + trail);
  }

  void WriteLines(char mark, const std::vector<std::string_view>& lines, std::int32_t begin, std::int32_t end) {
    for (std::int32_t i = begin; i < end; ++i) {
      const std::string_view line = lines[static_cast<std::size_t>(i)];
      out_ += mark;
      out_ += line;
      if (!line.ends_with('\n')) out_ += "\n\\ No newline at end of file\n";
    }
  }

  const std::vector<std::string_view> before_, after_;
  const std::vector<DiffHunk> hunks_;
  std::string out_;
};

}  // namespace

std::string UnifiedDiff(const std::string& path, const std::string& before, const std::string& after) {
  return DiffWriter(before, after).Write(path);
}

LineCounts CountChangedLines(const std::string& before, const std::string& after) {
  LineCounts counts;
  for (const DiffHunk& hunk : DiffLines(LinesOf(before), LinesOf(after))) {
    counts.added += hunk.afterEnd - hunk.afterBegin;
    counts.removed += hunk.beforeEnd - hunk.beforeBegin;
  }
  return counts;
}

}  // namespace quorvane::workbench
