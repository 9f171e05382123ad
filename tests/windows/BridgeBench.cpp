// BridgeBench: what a match costs when the host stands behind IDispatch: one search over one module of N lines, each
// with one match, in each mode, with the result document and the result lines that every search makes. Prints
// "mode matches milliseconds microseconds-a-match" for 10,000, 35,000 and 100,000: processor time, the best of three
// runs in turn, so that what else happens on the machine hits all of them. Ends with 1 when 100,000 cost more than
// 1.3 times as much a match as 10,000 do.

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <string>

#include "base/Text.h"
#include "support/SearchFixture.h"
#include "windows/com/Win32.h"

namespace {

using namespace quorvane;

constexpr double kMostApart = 1.3;
constexpr std::array<std::size_t, 3> kSizes = {10000, 35000, 100000};

/// Milliseconds of processor time that this process has used.
double Used() {
  FILETIME made{}, ended{}, kernel{}, user{};
  ::GetProcessTimes(::GetCurrentProcess(), &made, &ended, &kernel, &user);
  const auto value = [](const FILETIME& time) { return time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime; };
  return (value(kernel) + value(user)) / 1e4;
}

std::u16string Code(std::size_t lines) {
  std::u16string code;
  for (std::size_t i = 0; i < lines; ++i)
    code += (i > 0 ? u"\r\n    total = price" : u"    total = price") + ToText(static_cast<std::int64_t>(i));
  return code;
}

/// Milliseconds; -1 when not all matches are found.
double Run(gsMode mode, const std::u16string& what, std::size_t lines) {
  test::SearchWorld world;
  world.OpenModule(Code(lines));
  world.Condition(gsCurModule, mode, what);
  const double begin = Used();
  const std::string error = world.Search();
  const double took = Used() - begin;
  return error.empty() && world.page->list.size() == lines ? took : -1;
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
    std::array<double, kSizes.size()> best;
    best.fill(std::numeric_limits<double>::max());
    for (int run = 0; run < 3; ++run) {
      for (std::size_t i = 0; i < kSizes.size(); ++i) {
        const double took = Run(mode, what, kSizes[i]);
        if (took < 0) return 2;
        best[i] = std::min(best[i], took);
      }
    }
    const auto each = [&](std::size_t i) { return best[i] * 1000 / static_cast<double>(kSizes[i]); };
    for (std::size_t i = 0; i < kSizes.size(); ++i) {
      std::printf("%s %u %.0f %.2f\n", name, static_cast<unsigned>(kSizes[i]), best[i], each(i));
    }
    std::fflush(stdout);
    if (each(2) > each(0) * kMostApart) flat = false;
  }
  return flat ? 0 : 1;
}
