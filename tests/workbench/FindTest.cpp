#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "TextPages.h"
#include "base/Text.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/Seen.h"
#include "workbench/model/Module.h"
#include "workbench/text/CaseFold.h"

namespace quorvane::workbench {
namespace {

using vbide::Selection;

constexpr std::int32_t kFar = 30000;

/// All matches from the start of `range` on, each search beginning where the last match ended.
std::vector<Selection> FindAll(Module& searched, std::u16string_view target, const MatchOptions& options,
                               const Selection& range) {
  const auto module = test::Seen(searched);
  std::vector<Selection> found;
  Selection next = range;
  while (module->Find(target, next, options.wholeWord, options.matchCase, options.patternSearch)) {
    found.push_back(next);
    next = {next.EndLine, next.EndColumn, range.EndLine, range.EndColumn};
    if (found.size() > 5000) break;
  }
  return found;
}

const std::string kLines =
    "Sub Alpha()\r\n"
    "Attribute Alpha.VB_X = 1\r\n"
    "  alpha = ALPHAbet + \"a[1]-x\"\n"
    "\x95\x41lpha\x95\x5C alpha_ 2alpha\r\n"
    "\r\n"
    "aaaa #12 ? * ]";

TEST(Find, GivesTheMatchesOfTheModule) {
  const TwoBytePage page;
  TurnClock clock;
  Module module(std::make_shared<SourceFile>(kLines), page, clock);
  for (const test::Row& row : test::Rows("workbench/Find.rows", "Matches")) {
    const std::string options = row.Bytes(1);
    const auto has = [&options](char c) { return options.find(c) != options.npos; };
    std::string text;
    for (const Selection& s : FindAll(module, row.Text(0), {has('w'), has('c'), has('p')}, {1, 1, 99, 1})) {
      EXPECT_EQ(s.StartLine, s.EndLine);
      text += (text.empty() ? "" : " ") + std::to_string(s.StartLine) + ":" + std::to_string(s.StartColumn) + "-" +
              std::to_string(s.EndColumn);
    }
    EXPECT_EQ(text, row.Bytes(2)) << row.Where();
  }
}

TEST(Find, RefusesAnInvalidPattern) {
  const LatinPage page;
  TurnClock clock;
  Module whole(std::make_shared<SourceFile>("x"), page, clock);
  const auto module = test::Seen(whole);
  for (const std::u16string pattern : {u"a[", u"[a", u"a[!", u"x[b-a]", u"[!9-0]"}) {
    Selection range{1, 1, 1, 2};
    EXPECT_EQ(test::Raised([&] { module->Find(pattern, range, false, false, true); }),
              "93 Invalid pattern string: " + ToUtf8(pattern));
    EXPECT_FALSE(module->Find(pattern, range, false, false, false));
  }
}

TEST(Find, StaysInItsRange) {
  const TwoBytePage page;
  TurnClock clock;
  Module whole(std::make_shared<SourceFile>("xx\x95\x41xx\r\nxx\r\n"), page, clock);
  const auto module = test::Seen(whole);
  for (const test::Row& row : test::Rows("workbench/Find.rows", "Ranges")) {
    const Selection range = row.Range(0);
    const Selection expected = row.Bytes(2).empty() ? range : row.Range(2);
    Selection found = range;
    EXPECT_EQ(module->Find(row.Text(1), found, false, false, false), !row.Bytes(2).empty()) << row.Where();
    EXPECT_EQ(found, expected) << row.Where();
  }
}

TEST(Find, FoldsTheLettersOfTheBasicPlane) {
  const std::vector<std::pair<char16_t, char16_t>> same = {{u'a', u'A'},     {0xE9, 0xC9},   {0x431, 0x411},
                                                           {0x3C3, 0x3A3},   {0x3C2, 0x3C3}, {0xB5, 0x3BC},
                                                           {0xFF41, 0xFF21}, {0x1E9, 0x1E8}};
  for (const auto& [a, b] : same) EXPECT_EQ(CaseFold::Of(a), CaseFold::Of(b)) << int{a};
  EXPECT_EQ(CaseFold::Capital(0x3C2), 0x3A3);
  for (char32_t c = 0x80; c < 0x10000; ++c)
    EXPECT_GE(CaseFold::Of(static_cast<char16_t>(c)), 0x80) << static_cast<int>(c);
  for (const char16_t c : {u'_', u'0', u'z', u'\u00E9', u'\u4E2D', u'\u0431'}) EXPECT_TRUE(IsWordUnit(c)) << int{c};
  for (const char16_t c : {u' ', u'-', u'\u00D7', u'\u3001', char16_t{0xDC80}}) EXPECT_FALSE(IsWordUnit(c)) << int{c};
}

/// Does `text` match `pattern`, whole? By trying everything.
bool IsLike(std::u16string_view text, std::u16string_view pattern, bool matchCase) {
  if (pattern.empty()) return text.empty();
  const auto same = [matchCase](char16_t a, char16_t b) {
    return matchCase ? a == b : CaseFold::Of(a) == CaseFold::Of(b);
  };
  if (pattern[0] == u'*') {
    for (std::size_t i = 0; i <= text.size(); ++i) {
      if (IsLike(text.substr(i), pattern.substr(1), matchCase)) return true;
    }
    return false;
  }
  if (text.empty()) return false;
  std::size_t length = 1;
  bool fits = false;
  if (pattern[0] == u'[') {  // [x-y] or [!xy] alone
    length = pattern.find(u']') + 1;
    if (pattern[1] == u'!') {
      fits = !same(text[0], pattern[2]) && !same(text[0], pattern[3]);
    } else {
      for (char16_t c = pattern[1]; c <= pattern[3]; ++c) fits = fits || same(text[0], c);
    }
  } else {
    fits = pattern[0] == u'?' || (pattern[0] == u'#' ? text[0] >= u'0' && text[0] <= u'9' : same(text[0], pattern[0]));
  }
  return fits && IsLike(text.substr(1), pattern.substr(length), matchCase);
}

/// The search of one line by trying every place and every length.
std::optional<LineMatch> NaiveNext(std::u16string_view line, std::u16string_view target, const MatchOptions& options,
                                   std::size_t from, std::size_t to) {
  const auto isWord = [&](std::size_t i) { return i < line.size() && IsWordUnit(line[i]); };
  const auto matches = [&](std::u16string_view piece) {
    if (options.patternSearch) return IsLike(piece, target, options.matchCase);
    if (piece.size() != target.size()) return false;
    for (std::size_t i = 0; i < piece.size(); ++i) {
      if (options.matchCase ? piece[i] != target[i] : CaseFold::Of(piece[i]) != CaseFold::Of(target[i])) return false;
    }
    return true;
  };
  for (std::size_t begin = from; begin < to; ++begin) {
    for (std::size_t end = to; end > begin; --end) {
      if (options.wholeWord && ((begin > 0 && isWord(begin - 1)) || isWord(end))) continue;
      if (matches(line.substr(begin, end - begin))) return LineMatch{begin, end};
    }
  }
  return {};
}

class FindAgainstNaive : public testing::Test {
 protected:
  std::u16string Units(std::size_t most, const std::vector<std::u16string>& from) {
    std::u16string text;
    for (auto n = random_() % (most + 1); n > 0; --n) text += from[random_() % from.size()];
    return text;
  }
  bool Coin() { return random_() % 2 == 0; }

  void MakeModule() {
    std::string bytes;
    for (auto n = random_() % 12; n > 0; --n) {
      std::size_t failedAt = 0;
      ASSERT_TRUE(page_.Encode(Units(9, kText), bytes, failedAt));
      bytes += Coin() ? "\r\n" : "\n";
      if (random_() % 4 == 0) bytes += "Attribute aB.VB_ab1 = \"ab1\"\r\n";
    }
    module_ = std::make_unique<Module>(std::make_shared<SourceFile>(bytes), page_, clock_);
    if (Coin()) return;
    for (auto n = random_() % 4; n > 0; --n) {
      const auto line = static_cast<std::int32_t>(random_()) % (module_->CountOfLines() + 1);
      module_->InsertLines(std::abs(line) + 1, Units(9, kText));
      if (Coin()) module_->DeleteLines(std::abs(line) / 2 + 1, 1);
    }
  }

  std::int32_t Column(std::u16string_view line, std::size_t unit) const {
    std::int32_t column = 1;
    for (std::size_t i = 0; i < unit; ++i) column += page_.IsWide(line[i]) ? 2 : 1;
    return column;
  }

  std::vector<Selection> Naive(std::u16string_view target, const MatchOptions& options, const Selection& range) const {
    std::vector<Selection> found;
    for (std::int32_t y = std::max(range.StartLine, 1); y <= std::min(range.EndLine, module_->CountOfLines()); ++y) {
      const std::u16string line = module_->Lines(y, 1);
      std::size_t from = 0;
      while (y == range.StartLine && from < line.size() && Column(line, from) < range.StartColumn) ++from;
      std::size_t to = line.size();
      while (y == range.EndLine && to > 0 && Column(line, to) > range.EndColumn) --to;
      while (from < to) {
        const std::optional<LineMatch> match = NaiveNext(line, target, options, from, to);
        if (!match) break;
        found.push_back({y, Column(line, match->begin), y, Column(line, match->end)});
        from = match->end;
      }
    }
    return found;
  }

  const std::vector<std::u16string> kText = {u"a", u"b", u"A",   u"B",      u"1",     u"_",
                                             u" ", u"-", u"ab1", u"\u5DC1", u"\u5DDC"};
  const TwoBytePage page_;
  TurnClock clock_;
  std::mt19937 random_;
  std::unique_ptr<Module> module_;
};

TEST_F(FindAgainstNaive, TheMatchesAreTheSame) {
  const std::vector<std::u16string> patternText = {u"a", u"B", u"1",     u" ",     u"?",     u"*",
                                                   u"*", u"#", u"[a-b]", u"[!a1]", u"\u5DC1"};
  std::size_t matches = 0;
  std::size_t sieved = 0;
  for (unsigned seed = 0; seed < 4000; ++seed) {
    SCOPED_TRACE(seed);
    random_.seed(seed);
    MakeModule();
    const MatchOptions options{Coin(), Coin(), Coin()};
    const std::u16string target = Units(3, options.patternSearch ? patternText : kText);
    const auto number = [this](unsigned limit) { return static_cast<std::int32_t>(random_() % limit); };
    const Selection range{number(6), number(9), number(16), Coin() ? kFar : number(14)};
    const std::vector<Selection> expected = Naive(target, options, range);
    ASSERT_EQ(FindAll(*module_, target, options, range), expected)
        << ToUtf8(module_->Text()) << "\n"
        << ToUtf8(target) << options.wholeWord << options.matchCase << options.patternSearch;
    const bool lacks = module_->SurelyLacks(target, options.wholeWord, options.matchCase, options.patternSearch);
    ASSERT_FALSE(lacks && !expected.empty()) << ToUtf8(target);
    matches += expected.size();
    sieved += lacks;
  }
  EXPECT_GT(matches, 2000U);
  EXPECT_GT(sieved, 200U);
}

/// A long pattern and a long line: no backtracking, and sets of states of more than one word.
TEST(Find, TakesALongPatternInItsStride) {
  const LatinPage page;
  TurnClock clock;
  const Module module(std::make_shared<SourceFile>(std::string(20000, 'a') + "b"), page, clock);
  std::u16string stars;
  std::u16string many;
  for (int i = 0; i < 100; ++i) {
    stars += u"a*";
    many += u"?";
  }
  Selection range{1, 1, 1, kFar};
  EXPECT_FALSE(module.Find(stars + u"c", range, false, false, true));
  EXPECT_TRUE(module.Find(stars + u"[b]", range, false, false, true));
  EXPECT_EQ(range, (Selection{1, 1, 1, 20002}));
  range = {1, 1, 1, kFar};
  EXPECT_TRUE(module.Find(many + u"b", range, false, false, true));
  EXPECT_EQ(range, (Selection{1, 19901, 1, 20002}));
}

/// A run across block borders of the scan, at every place of a long file.
TEST(ByteScanner, PassesOverNoPlace) {
  for (const bool matchCase : {false, true}) {
    for (const std::string run : {"q", "qx", "a_quick", "eee"}) {
      const ByteScanner scanner(run, matchCase);
      for (std::size_t at = 0; at < 300; ++at) {
        std::string bytes = std::string(at, 'e') + run;
        if (run != "eee" && at > 0) bytes[at / 2] = static_cast<char>(0xF1);
        if (run == "eee") std::fill_n(bytes.begin(), at, '.');
        bytes += std::string(at % 7, '.');
        EXPECT_EQ(scanner.Find(bytes, 0), at) << run;
        EXPECT_EQ(scanner.Find(bytes, at), at) << run;
        EXPECT_EQ(scanner.Find(bytes, at + 1), std::string::npos) << run;
      }
    }
  }
  EXPECT_EQ(ByteScanner("Ab@", false).Find("xAB`aB@", 0), 4U);
  EXPECT_EQ(ByteScanner("Ab", true).Find("ABaBAb", 0), 4U);
  for (std::size_t at = 0; at < 300; ++at)
    EXPECT_EQ(ByteScanner::BeyondAscii().Find(std::string(at, 'x') + "\x80" + "x", at / 2), at);
}

}  // namespace
}  // namespace quorvane::workbench
