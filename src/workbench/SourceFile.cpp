#include "workbench/SourceFile.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "workbench/SourceHeader.h"

namespace quorvane::workbench {

// A file is read in two passes over its bytes: one counts line ends, in a loop that the compiler turns into vector
// instructions, and tells whether the rare lone CR occurs at all; the other cuts the lines, with memchr when it does
// not. Only lines that begin with an A are looked at more closely.

namespace {

struct LineEndCount {
  std::size_t lf = 0;
  std::size_t loneCr = 0;
};

LineEndCount CountLineEnds(std::string_view bytes) {
  LineEndCount count;
  if (bytes.empty()) return count;
  const char* const data = bytes.data();
  const std::size_t last = bytes.size() - 1;
  for (std::size_t begin = 0; begin < last;) {
    const std::size_t end = std::min(begin + 255, last);  // as many as a byte can count
    unsigned char lf = 0;
    unsigned char loneCr = 0;
    for (std::size_t i = begin; i < end; ++i) {
      lf = static_cast<unsigned char>(lf + (data[i] == '\n' ? 1 : 0));
      loneCr = static_cast<unsigned char>(loneCr + ((data[i] == '\r' ? 1 : 0) & (data[i + 1] != '\n' ? 1 : 0)));
    }
    count.lf += lf;
    count.loneCr += loneCr;
    begin = end;
  }
  count.lf += bytes[last] == '\n' ? 1 : 0;
  count.loneCr += bytes[last] == '\r' ? 1 : 0;
  return count;
}

bool MayBeAttribute(std::string_view line) {
  for (const char c : line) {
    if (c != ' ' && c != '\t') return c == 'A' || c == 'a';
  }
  return false;
}

bool IsContinued(std::string_view line) {
  return line.size() >= 2 && line.back() == '_' && (line[line.size() - 2] == ' ' || line[line.size() - 2] == '\t');
}

/// Calls `take` with each line from `begin` on. No lone CR occurs.
template <class Take>
void CutLines(std::string_view bytes, std::size_t begin, const Take& take) {
  const char* const data = bytes.data();
  while (begin < bytes.size()) {
    const void* const found = std::memchr(data + begin, '\n', bytes.size() - begin);
    if (found == nullptr) {
      take(FileLineSpan{begin, bytes.size(), bytes.size()});
      return;
    }
    const auto lf = static_cast<std::size_t>(static_cast<const char*>(found) - data);
    take(FileLineSpan{begin, lf > begin && data[lf - 1] == '\r' ? lf - 1 : lf, lf + 1});
    begin = lf + 1;
  }
}

}  // namespace

SourceFile::SourceFile(std::string bytes) : bytes_(std::move(bytes)) {
  const std::string_view all = bytes_;
  const SourceHeader header = ReadSourceHeader(all);
  codeBegin_ = static_cast<std::uint32_t>(header.end);
  headerLines_ = header.lines;
  name_ = header.component;

  const LineEndCount ends = CountLineEnds(all.substr(codeBegin_));
  lines_.reserve(ends.lf + ends.loneCr + 1);
  const auto take = [this, all](const FileLineSpan& span) {
    const std::string_view line = all.substr(span.begin, span.end - span.begin);
    AttributeLine attribute;
    const bool hidden = MayBeAttribute(line) && ReadAttributeLine(line, attribute) &&
                        (lines_.empty() || !IsContinued(LineBytes(lines_.size() - 1)));
    if (!hidden) {
      lines_.push_back({static_cast<std::uint32_t>(span.begin), static_cast<std::uint32_t>(line.size())});
      return;
    }
    hidden_.push_back({static_cast<std::int32_t>(lines_.size()), static_cast<std::uint32_t>(span.begin),
                       static_cast<std::uint32_t>(span.next)});
    std::string_view name;
    if (name_.empty() && IsNameAttribute(attribute, name)) name_ = name;
  };
  if (ends.loneCr == 0) {
    CutLines(all, codeBegin_, take);
    return;
  }
  for (std::size_t begin = codeBegin_; begin < all.size();) {
    const FileLineSpan span = FileLineAt(all, begin);
    take(span);
    begin = span.next;
  }
}

std::string_view SourceFile::LineEnd(std::size_t index) const {
  const std::string_view rest = std::string_view(bytes_).substr(lines_[index].begin + lines_[index].length);
  return rest.substr(0, rest.starts_with("\r\n") ? 2 : 1);
}

std::int32_t SourceFile::FileLine(std::int32_t line) const {
  const auto above = std::partition_point(hidden_.begin(), hidden_.end(),
                                          [line](const HiddenLine& hidden) { return hidden.after < line; });
  return headerLines_ + static_cast<std::int32_t>(above - hidden_.begin()) + line;
}

}  // namespace quorvane::workbench
