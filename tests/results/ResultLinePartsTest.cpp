#include <gtest/gtest.h>

#include "addin/results/ResultLineParts.h"
#include "base/Error.h"
#include "base/Text.h"
#include "support/Rows.h"

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
  for (const Row& row : Rows("results/ResultLineParts.rows", "Pieces")) {
    EXPECT_EQ(Pieces(row.Text(1), row.Text(2), row.Number(3), row.Number(4)), row.Bytes(5)) << row.Where();
  }
}

TEST(ResultLineParts, PlacesAreOfSixteenBits) {
  const std::u16string line(32760, u'x');
  EXPECT_EQ(FindMatchInResultLine(line, line, 1, 32761), (ResultLineParts{0, 1, 32761}));
  EXPECT_EQ(FindMatchInResultLine(u"1234567" + line, line, 1, 32760), (ResultLineParts{7, 8, 32767}));
  EXPECT_THROW(FindMatchInResultLine(u"1234567" + line, line, 1, 32761), Error);
  EXPECT_THROW(FindMatchInResultLine(std::u16string(32768, u' ') + u"a", u"a", 1, 2), Error);
}

}  // namespace quorvane::test
