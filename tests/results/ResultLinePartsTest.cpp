#include <gtest/gtest.h>

#include "addin/results/ResultLineParts.h"
#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::test {

namespace {

/// The four pieces as "prefix|before|match|rest", "none" when the source line is not there.
std::string Pieces(std::u16string_view text, std::u16string_view line, std::int32_t start, std::int32_t end) {
  const auto parts = FindMatchInResultLine(text, line, start, end);
  if (!parts) return "none";
  return ToUtf8(parts->Prefix(text)) + "|" + ToUtf8(parts->BeforeMatch(text)) + "|" + ToUtf8(parts->Match(text)) + "|" +
         ToUtf8(parts->Rest(text));
}

}  // namespace

TEST(ResultLineParts, PiecesOfALine) {
  struct Row {
    const char* what;
    const char16_t* text;
    const char16_t* line;
    std::int32_t start;
    std::int32_t end;
    const char* pieces;
  };
  const std::vector<Row> rows{
      {"a plain line", u"P[1,5]Dim abc ' x", u"Dim abc ' x", 5, 8, "P[1,5]|Dim |abc| ' x"},
      {"a match at column 1", u"P: abc", u"abc", 1, 3, "P: ||ab|c"},
      {"the whole line", u"abc", u"abc", 1, 4, "||abc|"},
      {"no source line", u"P abd", u"abc", 1, 2, "none"},
      {"another case", u"P ABC", u"abc", 1, 2, "none"},
      {"the last occurrence counts", u"abc: abc", u"abc", 2, 3, "abc: |a|b|c"},
      {"occurrences overlap", u"aaaa", u"aaa", 1, 2, "a||a|aa"},
      {"text behind the source line", u"abc - P", u"abc", 2, 4, "|a|bc| - P"},
      {"past the end of the line, as over several lines", u"P abc", u"abc", 3, 40, "P |ab|c|"},
      {"past the end into what follows", u"abc def", u"abc", 3, 6, "|ab|c d|ef"},
      {"an empty match", u"P abc", u"abc", 2, 2, "P |a||bc"},
      {"an empty match behind the line's end", u"P abc", u"abc", 5, 5, "P |abc||"},
      {"an empty source line stands at the end", u"P[1,1]", u"", 1, 3, "P[1,1]|||"},
  };
  for (const Row& row : rows) EXPECT_EQ(Pieces(row.text, row.line, row.start, row.end), row.pieces) << row.what;
}

TEST(ResultLineParts, PlacesAreOfSixteenBits) {
  const std::u16string line(32760, u'x');
  EXPECT_EQ(FindMatchInResultLine(line, line, 1, 32761), (ResultLineParts{0, 1, 32761}));
  EXPECT_EQ(FindMatchInResultLine(u"1234567" + line, line, 1, 32760), (ResultLineParts{7, 8, 32767}));
  EXPECT_THROW(FindMatchInResultLine(u"1234567" + line, line, 1, 32761), Error);
  EXPECT_THROW(FindMatchInResultLine(std::u16string(32768, u' ') + u"a", u"a", 1, 2), Error);
}

}  // namespace quorvane::test
