#include "workbench/find/LineMatcher.h"

#include <string>

#include "workbench/find/PatternMatcher.h"
#include "workbench/find/PlainMatcher.h"

namespace quorvane::workbench {

std::unique_ptr<LineMatcher> MakeLineMatcher(std::u16string_view target, const MatchOptions& options) {
  if (options.patternSearch) return std::make_unique<PatternMatcher>(target, options);
  return std::make_unique<PlainMatcher>(target, options);
}

Sieve SieveOf(const LineMatcher& matcher, const MatchOptions& options) {
  if (!matcher.AsciiRun().empty()) return Sieve({std::string(matcher.AsciiRun())}, options.matchCase);
  return matcher.NeedsBeyondAscii() ? Sieve::BeyondAscii() : Sieve();
}

}  // namespace quorvane::workbench
