#include "addin/search/CommentFilter.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/Error.h"
#include "base/Text.h"
#include "vbide/VBIDE.h"

namespace quorvane {

// Plain inspection of the text, no parser.
//
// The walk starts at the end of the range and goes up: through all lines of the range, and above its first line for as
// long as the line above ends in the continuation mark, since a comment continued over lines covers the lines below it.
// A line counts as comment from a leading "rem " or from an apostrophe on that stands in no string; strings do not
// continue over line ends, so each line is judged by itself.

namespace {

/// `pos` is 1-based; whether the number of quotes up to there is odd.
bool InsideString(std::u16string_view s, std::size_t pos) {
  const std::u16string_view head = s.substr(0, pos);
  return std::count(head.begin(), head.end(), u'"') % 2 != 0;
}

bool HasCommentMark(std::u16string_view s) {
  if (EqualsNoCaseAscii(s.substr(0, 4), u"rem ")) return true;
  for (std::size_t at = s.rfind(u'\''); at != s.npos; at = at == 0 ? s.npos : s.rfind(u'\'', at - 1)) {
    if (!InsideString(s, at + 1)) return true;
  }
  return false;
}

}  // namespace

bool HasCommentBefore(vbide::CodeModule& code, std::int32_t y1, std::int32_t y2, std::int32_t x2) {
  std::int32_t y = y2;
  std::u16string s = code.Lines(y, 1);
  if (x2 < 1) RaiseError(ErrorNumber::InvalidProcedureCall);
  s.resize(std::min(s.size(), static_cast<std::size_t>(x2) - 1));
  for (;;) {
    if (HasCommentMark(s)) return true;
    if (--y < 1) return false;
    s = code.Lines(y, 1);
    if (s.empty() || (y < y1 && s.back() != u'_')) return false;
  }
}

}  // namespace quorvane
