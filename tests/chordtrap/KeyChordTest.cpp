#include <gtest/gtest.h>

#include <set>

#include "base/Text.h"
#include "chordtrap/KeyChord.h"
#include "support/Raised.h"
#include "support/Rows.h"

namespace quorvane::chordtrap {

void PrintTo(const KeyChord& chord, std::ostream* out) {
  *out << chord.KeyCode << "," << chord.Modifier;
}

}  // namespace quorvane::chordtrap

namespace quorvane::test {

using namespace chordtrap;

TEST(KeyChord, TextOfEveryKeyIsItsOwnAndComesBack) {
  std::set<std::u16string> seen;
  for (std::int32_t code = 1; code <= 255; ++code) {
    for (std::int32_t modifier = 0; modifier < 8; ++modifier) {
      const KeyChord chord{code, modifier};
      const std::u16string text = KeyText(chord);
      EXPECT_TRUE(seen.insert(text).second) << ToUtf8(text) << " stands for two keys";
      EXPECT_EQ(ParseKey(text), chord) << ToUtf8(text);
    }
  }
  EXPECT_EQ(ParseKey(KeyText({})), KeyChord{});
}

TEST(KeyChord, ReadsAndWrites) {
  for (const Row& row : Rows("chordtrap/KeyChord.rows", "Written")) {
    EXPECT_EQ(KeyText({row.Number(0), row.Number(1)}), row.Text(2)) << row.Where();
  }
  for (const Row& row : Rows("chordtrap/KeyChord.rows", "Read")) {
    EXPECT_EQ(ParseKey(row.Text(0)), (KeyChord{row.Number(1), row.Number(2)})) << row.Where();
  }
  for (const Row& row : Rows("chordtrap/KeyChord.rows", "NoKeys")) {
    EXPECT_EQ(Raised([&] { ParseKey(row.Text(0)); }), 13) << row.Where();
  }
  for (const KeyChord chord : {KeyChord{256, 0}, KeyChord{-1, 0}, KeyChord{81, 8}}) {
    EXPECT_EQ(Raised([&] { KeyText(chord); }), 5);
  }
}

}  // namespace quorvane::test
