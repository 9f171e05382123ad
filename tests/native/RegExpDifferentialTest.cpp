// Random patterns and texts, the engine's matches against those of a matcher that does what ECMAScript 3 says in the
// simplest way: try everything, from left to right, with the rest of the match as a continuation.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "native/regexp/PcreRegExp.h"
#include "support/Seed.h"

namespace quorvane::native {
namespace {

using Text = std::u16string_view;
using Rest = std::function<bool(std::size_t)>;
/// Matches `text` from a place on, then calls the rest; true when all of it matched.
using Matcher = std::function<bool(Text, std::size_t, const Rest&)>;

struct Piece {
  std::u16string Source;
  Matcher Match;
  bool Nullable = false;
  bool IsUnit = false;  ///< one unit, so that a quantifier binds to it without a group
};

bool IsBreak(char16_t c) {
  return c == u'\r' || c == u'\n';
}
bool IsInsideBreak(Text text, std::size_t at) {
  return at > 0 && at < text.size() && text[at - 1] == u'\r' && text[at] == u'\n';
}
bool IsWord(Text text, std::size_t at) {
  return at < text.size() && (text[at] == u'a' || text[at] == u'b');
}

Piece Unit(std::u16string source, std::function<bool(char16_t)> accepts) {
  return {std::move(source),
          [accepts = std::move(accepts)](Text text, std::size_t at, const Rest& rest) {
            return at < text.size() && accepts(text[at]) && rest(at + 1);
          },
          false, true};
}

Piece Assertion(std::u16string source, std::function<bool(Text, std::size_t)> holds) {
  return {
      std::move(source),
      [holds = std::move(holds)](Text text, std::size_t at, const Rest& rest) { return holds(text, at) && rest(at); },
      true};
}

Piece Sequence(const Piece& a, const Piece& b) {
  return {a.Source + b.Source,
          [a = a.Match, b = b.Match](Text text, std::size_t at, const Rest& rest) {
            return a(text, at, [&](std::size_t next) { return b(text, next, rest); });
          },
          a.Nullable && b.Nullable};
}

Piece Either(const Piece& a, const Piece& b) {
  return {u"(?:" + a.Source + u"|" + b.Source + u")",
          [a = a.Match, b = b.Match](Text text, std::size_t at, const Rest& rest) {
            return a(text, at, rest) || b(text, at, rest);
          },
          a.Nullable || b.Nullable};
}

bool MatchRepeat(const Matcher& atom, Text text, std::size_t at, int least, int most, bool lazy, const Rest& rest) {
  const auto more = [&] {
    return most > 0 && atom(text, at, [&](std::size_t next) {
             return next > at && MatchRepeat(atom, text, next, least - 1, most - 1, lazy, rest);
           });
  };
  if (least > 0) return more();
  return lazy ? rest(at) || more() : more() || rest(at);
}

Piece Repeat(const Piece& atom, std::u16string_view quantifier, int least, int most, bool lazy) {
  const std::u16string source = atom.IsUnit ? atom.Source : u"(?:" + atom.Source + u")";
  return {source + std::u16string(quantifier) + (lazy ? u"?" : u""),
          [atom = atom.Match, least, most, lazy](Text text, std::size_t at, const Rest& rest) {
            return MatchRepeat(atom, text, at, least, most, lazy, rest);
          },
          least == 0};
}

class Generator {
 public:
  Generator(std::mt19937& random, bool multiline) : mobjRandom(random), mblnMultiline(multiline) {}

  Piece Make(int depth) {
    switch (depth == 0 ? Pick(9) : Pick(15)) {
      case 0:
        return Unit(u"a", [](char16_t c) { return c == u'a'; });
      case 1:
        return Unit(u"b", [](char16_t c) { return c == u'b'; });
      case 2:
        return Unit(u".", [](char16_t c) { return !IsBreak(c) && c != u'\u2028'; });
      case 3:
        return Unit(u"[^a]", [](char16_t c) { return c != u'a'; });
      case 4:
        return Unit(u"\\n", [](char16_t c) { return c == u'\n'; });
      case 5:
        return Unit(u"\\s", [](char16_t c) { return IsBreak(c) || c == u' '; });
      case 6:
        return Assertion(u"^", [multi = mblnMultiline](Text text, std::size_t at) {
          return at == 0 || (multi && IsBreak(text[at - 1]) && !IsInsideBreak(text, at));
        });
      case 7:
        return Assertion(u"$", [multi = mblnMultiline](Text text, std::size_t at) {
          return at == text.size() || (multi && IsBreak(text[at]) && !IsInsideBreak(text, at));
        });
      case 8:
        return Pick(2) == 0 ? Word(u"\\b", true) : Word(u"\\B", false);
      case 9:
      case 10:
        return Either(Make(depth - 1), Make(depth - 1));
      case 11:
      case 12:
        return Repetition(Make(depth - 1));
      default:
        return Sequence(Make(depth - 1), Make(depth - 1));
    }
  }

  int Pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(mobjRandom); }

 private:
  static Piece Word(std::u16string source, bool edge) {
    return Assertion(std::move(source), [edge](Text text, std::size_t at) {
      return ((at > 0 && IsWord(text, at - 1)) != IsWord(text, at)) == edge;
    });
  }

  Piece Repetition(const Piece& atom) {
    if (atom.Nullable) return atom;  // rounds that match nothing are where dialects differ
    const bool lazy = Pick(3) == 0;
    switch (Pick(4)) {
      case 0:
        return Repeat(atom, u"?", 0, 1, lazy);
      case 1:
        return Repeat(atom, u"+", 1, 99, lazy);
      case 2:
        return Repeat(atom, u"{1,2}", 1, 2, lazy);
      default:
        return Repeat(atom, u"*", 0, 99, lazy);
    }
  }

  std::mt19937& mobjRandom;
  bool mblnMultiline;
};

std::vector<RegExpMatch> NaiveExecute(const Piece& piece, Text text) {
  std::vector<RegExpMatch> matches;
  for (std::size_t at = 0; at <= text.size();) {
    std::size_t end = 0;
    if (!piece.Match(text, at, [&](std::size_t reached) {
          end = reached;
          return true;
        })) {
      ++at;
      continue;
    }
    matches.push_back({static_cast<std::int32_t>(at), static_cast<std::int32_t>(end - at)});
    at = end > at ? end : at + 1;
  }
  return matches;
}

TEST(RegExpDifferentialTest, SimplePatterns) {
  const char* const wanted = std::getenv("QUORVANE_PATTERNS");
  const int rounds = wanted != nullptr ? std::atoi(wanted) : 4000;
  std::mt19937 random(test::NewSeed());
  int known = 0;
  for (int round = 0; round < rounds; ++round) {
    const bool multiline = round % 4 != 0;
    Generator generator(random, multiline);
    Piece piece = generator.Make(4);
    if (round % 5 == 0) {  // alternatives outside of any group
      piece = Either(piece, generator.Make(3));
      piece.Source = piece.Source.substr(3, piece.Source.size() - 4);
    }
    PcreRegExp regExp;
    regExp.Global = true;
    regExp.Multiline = multiline;
    regExp.IgnoreCase = round % 3 == 0;
    regExp.Pattern = piece.Source;
    const std::vector<std::string> required = regExp.RequiredTexts();
    known += !required.empty();
    for (int sample = 0; sample < 8; ++sample) {
      std::u16string text;
      for (int left = generator.Pick(12); left > 0; --left) {
        text +=
            std::u16string_view(u"aab \r\n\r\n\u2028")[static_cast<std::size_t>(generator.Pick(sample == 0 ? 9 : 8))];
      }
      const std::vector<RegExpMatch> matches = regExp.Execute(text);
      for (const RegExpMatch& match : matches) {
        const std::string found = ToUtf8(
            Text(text).substr(static_cast<std::size_t>(match.FirstIndex), static_cast<std::size_t>(match.Length)));
        ASSERT_TRUE(
            required.empty() ||
            std::ranges::any_of(required, [&](const std::string& one) { return found.find(one) != found.npos; }))
            << ToUtf8(piece.Source) << " matches " << found << " without " << testing::PrintToString(required);
      }
      ASSERT_EQ(matches, NaiveExecute(piece, text))
          << "round " << round << (multiline ? " multi-line " : " ") << ToUtf8(piece.Source) << " on "
          << testing::PrintToString(ToUtf8(text));
    }
  }
  EXPECT_GT(known, rounds / 10) << "patterns with texts that every match holds";
}

}  // namespace
}  // namespace quorvane::native
