// Plain text and patterns in a line against the simplest matcher: first line options and target, then the text.
#include <algorithm>
#include <memory>
#include <vector>

#include "Input.h"
#include "base/Error.h"
#include "base/Text.h"
#include "workbench/find/LineMatcher.h"

using namespace quorvane;
using workbench::LineMatch;

namespace {

/// Whether all of `text` is what a pattern of `?`, `*`, `#` and other characters says: `fits[i]` tells whether what is
/// read of the pattern so far says the first `i` characters.
bool Fits(std::u16string_view pattern, std::u16string_view text) {
  std::vector<bool> fits(text.size() + 1);
  fits[0] = true;
  for (const char16_t c : pattern) {
    for (std::size_t i = 1; c == u'*' && i < fits.size(); ++i) fits[i] = fits[i] || fits[i - 1];
    if (c == u'*') continue;
    for (std::size_t i = text.size(); i > 0; --i) {
      const char16_t is = text[i - 1];
      fits[i] = fits[i - 1] && (c == u'?' || (c == u'#' ? is >= u'0' && is <= u'9' : c == is));
    }
    fits[0] = false;
  }
  return fits.back();
}

bool NaiveNext(std::u16string_view target, bool pattern, std::u16string_view line, std::size_t from, LineMatch& match) {
  for (std::size_t begin = from; begin < line.size(); ++begin) {
    for (std::size_t end = line.size(); end > begin; --end) {
      const auto text = line.substr(begin, end - begin);
      if (pattern ? !Fits(target, text) : text != target) continue;
      match = {begin, end};
      return true;
    }
  }
  return false;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  const std::string_view head = input.Line();
  if (head.size() < 2) return 0;
  workbench::MatchOptions options{(head[0] & 1) != 0, (head[0] & 2) != 0, (head[0] & 4) != 0};
  const std::u16string target = FromUtf8(head.substr(1)).substr(0, 10);
  std::u16string line = FromUtf8(input.Rest()).substr(0, 30);
  std::erase_if(line, [](char16_t c) { return c == u'\r' || c == u'\n'; });
  std::unique_ptr<workbench::LineMatcher> matcher;
  try {
    matcher = workbench::MakeLineMatcher(target, options);
  } catch (const Error&) {
    return 0;
  }
  const bool simple = !options.wholeWord && options.matchCase && target.find_first_of(u"[]") == std::u16string::npos;
  for (std::size_t from = 0; from <= line.size();) {
    LineMatch match, naive;
    const bool found = matcher->Next(line, from, line.size(), match);
    if (simple) {
      fuzz::Expect(found == NaiveNext(target, options.patternSearch, line, from, naive));
      fuzz::Expect(!found || match == naive);
    }
    if (!found) break;
    fuzz::Expect(match.begin >= from && match.end > match.begin && match.end <= line.size());
    from = match.end;
  }
  return 0;
}
