#include <gtest/gtest.h>

#include <set>

#include "base/Text.h"
#include "chordtrap/KeyChord.h"
#include "support/Raised.h"

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
  struct Row {
    KeyChord chord;
    const char16_t* text;
  };
  const Row written[] = {{{81, kCtrl}, u"Ctrl+Q"},
                         {{188, kCtrl}, u"Ctrl+,"},
                         {{190, kCtrl}, u"Ctrl+."},
                         {{187, kCtrl}, u"Ctrl+="},
                         {{123, kCtrl | kAlt | kShift}, u"Ctrl+Alt+Shift+F12"},
                         {{46, 0}, u"Delete"},
                         {{255, kShift}, u"Shift+Key255"},
                         {{0, 0}, u""},
                         {{0, kCtrl}, u""}};
  for (const Row& row : written) EXPECT_EQ(KeyText(row.chord), row.text);
  const Row read[] = {{{81, kCtrl}, u" ctrl + q "}, {{81, kCtrl | kShift}, u"Shift+CTRL+Q"}, {{}, u"  "}};
  for (const Row& row : read) EXPECT_EQ(ParseKey(row.text), row.chord) << ToUtf8(row.text);
  for (const char16_t* text : {u"Ctrl", u"Ctrl+", u"+Q", u"Ctrl+Ctrl+Q", u"Q+Ctrl", u"Hyper+Q", u"Ctrl+Foo", u"Ctrl++",
                               u"Key0", u"Key256", u"Key81", u"F25", u"Ctrl-Q"}) {
    EXPECT_EQ(Raised([&] { ParseKey(text); }), 13) << ToUtf8(text);
  }
  for (const KeyChord chord : {KeyChord{256, 0}, KeyChord{-1, 0}, KeyChord{81, 8}}) {
    EXPECT_EQ(Raised([&] { KeyText(chord); }), 5);
  }
}

}  // namespace quorvane::test
