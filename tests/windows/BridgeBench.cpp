// BridgeBench: what a match costs when the host stands behind IDispatch: one search over one module of N lines, each
// with one match, in each mode, with the result document and the result lines that every search makes. Prints
// "mode matches milliseconds microseconds-a-match" for 10,000, 35,000 and 100,000, the best of three runs. Ends with 1
// when 100,000 cost more than 1.3 times as much a match as 10,000 do.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

#include "base/Text.h"
#include "support/SearchFixture.h"

namespace {

using namespace quorvane;
using Clock = std::chrono::steady_clock;

/// Milliseconds; -1 when not all matches are found.
double Run(gsMode mode, const std::u16string& what, std::size_t lines) {
  std::u16string code;
  for (std::size_t i = 0; i < lines; ++i)
    code += (i > 0 ? u"\r\n    total = price" : u"    total = price") + ToText(static_cast<std::int64_t>(i));
  double best = 1e9;
  for (int run = 0; run < 3; ++run) {
    test::SearchWorld world;
    world.OpenModule(code);
    world.Condition(gsCurModule, mode, what);
    const Clock::time_point begin = Clock::now();
    const std::string error = world.Search();
    const std::chrono::duration<double, std::milli> took = Clock::now() - begin;
    if (!error.empty() || world.page->list.size() != lines) return -1;
    best = std::min(best, took.count());
  }
  return best;
}

}  // namespace

int main() {
  bool flat = true;
  const struct {
    const char* name;
    gsMode mode;
    const char16_t* what;
  } modes[] = {{"common", gsCommon, u"price"}, {"pattern", gsPattern, u"pr[i]ce"}, {"regular", gsRegular, u"pr.ce"}};
  for (const auto& [name, mode, what] : modes) {
    double first = 0;
    for (const std::size_t lines : {10000, 35000, 100000}) {
      const double took = Run(mode, what, lines);
      if (took < 0) return 2;
      const double each = took * 1000 / static_cast<double>(lines);
      if (first == 0) first = each;
      std::printf("%s %u %.0f %.2f\n", name, static_cast<unsigned>(lines), took, each);
      std::fflush(stdout);
      if (lines == 100000 && each > first * 1.3) flat = false;
    }
  }
  return flat ? 0 : 1;
}
