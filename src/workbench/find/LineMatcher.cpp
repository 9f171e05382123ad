#include "workbench/find/LineMatcher.h"

#include "workbench/find/PatternMatcher.h"
#include "workbench/find/PlainMatcher.h"

namespace quorvane::workbench {

std::unique_ptr<LineMatcher> MakeLineMatcher(std::u16string_view target, const MatchOptions& options) {
  if (options.patternSearch) return std::make_unique<PatternMatcher>(target, options);
  return std::make_unique<PlainMatcher>(target, options);
}

}  // namespace quorvane::workbench
