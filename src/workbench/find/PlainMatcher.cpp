#include "workbench/find/PlainMatcher.h"

#include <algorithm>

#include "workbench/find/WordBounds.h"
#include "workbench/text/CaseFold.h"

namespace quorvane::workbench {

PlainMatcher::PlainMatcher(std::u16string_view target, const MatchOptions& options)
    : target_(target), options_(options) {
  if (!options_.matchCase) std::transform(target_.begin(), target_.end(), target_.begin(), CaseFold::Of);
  std::string run;
  for (const char16_t c : target_) {
    if (c >= 0x80) {
      run.clear();
      needsBeyondAscii_ = true;
      continue;
    }
    run.push_back(static_cast<char>(c));
    if (run.size() > asciiRun_.size()) asciiRun_ = run;
  }
}

bool PlainMatcher::MatchesAt(std::u16string_view line, std::size_t at) const {
  const std::u16string_view piece = line.substr(at, target_.size());
  if (options_.matchCase) return piece == target_;
  return std::equal(piece.begin(), piece.end(), target_.begin(), target_.end(),
                    [](char16_t c, char16_t folded) { return CaseFold::Of(c) == folded; });
}

bool PlainMatcher::Next(std::u16string_view line, std::size_t from, std::size_t to, LineMatch& match) const {
  if (target_.empty()) return false;
  for (std::size_t begin = from; begin + target_.size() <= to; ++begin) {
    const std::size_t end = begin + target_.size();
    if (!MatchesAt(line, begin)) continue;
    if (options_.wholeWord && !(WordMayBegin(line, begin) && WordMayEnd(line, end))) continue;
    match = {begin, end};
    return true;
  }
  return false;
}

}  // namespace quorvane::workbench
