#include <gtest/gtest.h>

#include "addin/search/PositionInfo.h"
#include "search/NaiveModule.h"
#include "support/SearchFixture.h"

namespace quorvane::test {

namespace {

std::u16string Replaced(const Row& row, bool singleLine) {
  const bool whole = row.Bytes(2).empty();
  SearchWorld world;
  world.OpenModule(CrLf(row.Text(1)));
  world.Activate(u"M", whole ? vbide::Selection{1, 1, 1, 1} : row.Range(2));
  world.Condition(whole ? gsCurModule : gsSelection, gsRegular, row.Text(3));
  world.Setting().mstrReplaceStr = row.Text(4);
  world.Setting().mblnRegSingleLine = singleLine;
  EXPECT_EQ(world.Replace(), "") << row.Where();
  EXPECT_EQ(world.platform.loop.Yields, 0) << "a replace never yields";
  return world.Module(u"M").Text();
}

}  // namespace

TEST(Replace, MultiAndSingleLine) {
  for (const Row& row : Rows("search/Replace.rows", "MultiAndSingleLine")) {
    EXPECT_EQ(Replaced(row, false), CrLf(row.Text(5))) << row.Where();
    EXPECT_EQ(Replaced(row, true), CrLf(row.Text(6))) << row.Where();
  }
}

TEST(Replace, OptionsThatCount) {
  for (const bool singleLine : {false, true}) {
    SearchWorld world;
    world.OpenModule(u"A a ' a aa");
    world.Condition(gsCurModule, gsRegular, u"a");
    world.Setting().mblnRegSingleLine = singleLine;
    world.Setting().mblnMatchCase = true;
    world.Setting().mblnWholeWord = true;                   // not read
    world.Setting().menumIgnoreComment = gsExcludeComment;  // not read
    world.Setting().mstrReplaceStr = u"x";
    EXPECT_EQ(world.Replace(), "");
    EXPECT_EQ(world.Module(u"M").Text(), u"A x ' x xx");
  }
}

class ReplaceAreas : public SearchFixture {};

TEST_F(ReplaceAreas, EachAreaIsReplacedAndNoMore) {
  for (const bool singleLine : {false, true}) {
    for (const Row& row : Rows("search/Replace.rows", "Areas")) {
      Open(Group{}
               .Project(u"P")
               .Module(u"M", u"a\r\nSub S()\r\n a\r\nEnd Sub\r\nSub T()\r\n a\r\nEnd Sub")
               .Class(u"C", u"a")
               .Resource(u"R")
               .Project(u"Q")
               .Module(u"N", u"a"));
      Activate(u"M", {3, 1, 4, 2});
      Condition(static_cast<gsArea>(row.Number(1)), gsRegular, u"\\ba\\b");
      Setting().mstrReplaceStr = u"x";
      Setting().mblnRegSingleLine = singleLine;
      EXPECT_EQ(Replace(), "");
      EXPECT_EQ(Events(), Join(row.List(5))) << row.Where();
      EXPECT_EQ(Module(u"M").Text(), row.Text(2)) << row.Where();
      EXPECT_EQ(Module(u"C").Text() + u" " + Module(u"N").Text(), row.Text(3) + u" " + row.Text(4)) << row.Where();
    }
  }
}

TEST_F(ReplaceAreas, ALineWithoutAMatchIsNotEdited) {
  OpenModule(CrLf(u"a\nb\na"));
  int edits = 0;
  const auto changed = Module(u"M").Changed.Subscribe([&] { ++edits; });
  Condition(gsCurModule, gsRegular, u"z");
  EXPECT_EQ(Replace(), "");
  Setting().mblnRegSingleLine = true;
  EXPECT_EQ(Replace(), "");
  EXPECT_EQ(edits, 0) << "no match, no edit";
  EXPECT_FALSE(Module(u"M").CanUndo());
  Setting().mstrSearchStr = u"a";
  EXPECT_EQ(Replace(), "");
  EXPECT_EQ(edits, 4) << "a delete and an insert for each of two lines";
  EXPECT_EQ(Module(u"M").Text(), u"\r\nb\r\n");
  OpenModule(CrLf(u"a\nb\na"));
  const auto again = Module(u"M").Changed.Subscribe([&] { ++edits; });
  Setting().mblnRegSingleLine = false;
  EXPECT_EQ(Replace(), "");
  EXPECT_EQ(edits, 6) << "one delete and one insert for the region";
}

TEST_F(ReplaceAreas, EditsBeforeAFailureStay) {
  const std::u16string explosive = std::u16string(60, u'a') + u"!";
  Open(Group{}.Module(u"A", u"a").Module(u"B", explosive).Module(u"C", u"a"));
  Condition(gsAllProjects, gsRegular, u"(a+)+$");
  Setting().mstrReplaceStr = u"x";
  EXPECT_NE(Replace(), "");
  EXPECT_EQ(Events(), "begin 2\nscan A\nscan B\ndone 2");
  EXPECT_EQ(Module(u"A").Text(), u"x");
  EXPECT_EQ(Module(u"B").Text(), explosive);
  EXPECT_EQ(Module(u"C").Text(), u"a");
}

TEST(ReplaceWide, SelectionsAreScreenColumns) {
  for (const bool singleLine : {false, true}) {
    SearchWorld world("932");
    world.OpenModule(CrLf(u"漢a漢a\n漢a漢a"));
    world.Activate(u"M", {1, 4, 2, 3});
    world.Condition(gsSelection, gsRegular, u"[漢a]");
    world.Setting().mblnRegSingleLine = singleLine;
    world.Setting().mstrReplaceStr = u"字";
    EXPECT_EQ(world.Replace(), "");
    EXPECT_EQ(ToUtf8(world.Module(u"M").Text()), "漢a字字\r\n字a漢a");
  }
}

namespace {

/// A pattern with its meaning told anew: the length of the match that begins at a place, nothing when there is none.
struct Pattern {
  std::u16string text;
  std::function<std::optional<std::size_t>(std::u16string_view text, std::size_t at, bool multiLine)> match;
};

std::vector<Pattern> Patterns() {
  const auto literal = [](std::u16string_view word) {
    return [word](std::u16string_view text, std::size_t at, bool) {
      return text.substr(at).starts_with(word) ? std::optional(word.size()) : std::nullopt;
    };
  };
  const auto lineStart = [](std::u16string_view text, std::size_t at, bool multiLine) {
    return at == 0 || (multiLine && text[at - 1] == u'\n') ? std::optional<std::size_t>(0) : std::nullopt;
  };
  const auto lineEnd = [](std::u16string_view text, std::size_t at, bool multiLine) {
    return at == text.size() || (multiLine && text.substr(at).starts_with(u"\r\n")) ? std::optional<std::size_t>(0)
                                                                                    : std::nullopt;
  };
  const auto run = [](std::u16string_view text, std::size_t at, bool) -> std::optional<std::size_t> {
    const std::size_t length = std::min(text.find_first_not_of(u"ab", at), text.size()) - at;
    return length > 0 ? std::optional(length) : std::nullopt;
  };
  return {{u"a", literal(u"a")}, {u"ab", literal(u"ab")}, {u"\\r\\n", literal(u"\r\n")},    {u"^", lineStart},
          {u"$", lineEnd},       {u"[ab]+", run},         {u"b\\r\\na", literal(u"b\r\na")}};
}

/// `text` with all matches replaced, "$&" in `replacement` standing for the match.
std::u16string ReplaceNaively(const Pattern& pattern, std::u16string_view text, std::u16string_view replacement,
                              bool multiLine) {
  std::u16string out;
  for (std::size_t at = 0; at <= text.size();) {
    const auto length = pattern.match(text, at, multiLine);
    if (length) out += ReplaceAll(replacement, u"$&", text.substr(at, *length));
    const std::size_t step = length.value_or(0);
    if (step == 0 && at < text.size()) out += text[at];
    at += std::max<std::size_t>(step, 1);
  }
  return out;
}

bool Matches(const Pattern& pattern, std::u16string_view text) {
  for (std::size_t at = 0; at <= text.size(); ++at) {
    if (pattern.match(text, at, false)) return true;
  }
  return false;
}

/// The module's text as one string, cut at the region and put together again.
std::u16string ReplaceInText(const Pattern& pattern, const std::vector<std::u16string>& lines, vbide::Selection range,
                             std::u16string_view replacement, bool singleLine) {
  const NaiveModule naive(lines);
  const std::u16string text = naive.Text();
  const auto begin = static_cast<std::size_t>(naive.Offset(1, range.StartLine, range.StartColumn)) - 1;
  const auto end = static_cast<std::size_t>(naive.Offset(1, range.EndLine, range.EndColumn)) - 1;
  const std::u16string region = text.substr(begin, end - begin);
  std::u16string middle;
  if (!singleLine) {
    middle = ReplaceNaively(pattern, region, replacement, true);
  } else if (!Matches(pattern, region)) {
    middle = region;
  } else {
    for (const std::u16string_view line : Split(region, kCrLf)) {
      middle += ReplaceNaively(pattern, line, replacement, false) + std::u16string(kCrLf);
    }
    middle.resize(middle.size() - kCrLf.size());
  }
  return text.substr(0, begin) + middle + text.substr(end);
}

}  // namespace

/// Generated modules, selections, patterns and replacements, through the real workbench, against plain string work;
/// then undo must bring everything back in one step.
TEST(ReplaceGenerated, AgreesWithPlainStringWorkAndIsUndone) {
  const auto patterns = Patterns();
  const std::vector<std::u16string> replacements{u"", u"x", u"[$&]", u"$&$&", u"a", u"$&\\n", u"\\r$&\\r"};
  for (std::uint32_t seed = 1; seed <= 1500; ++seed) {
    Dice dice(seed);
    auto lines = RandomLines(dice, 6, {u"a", u"b", u"c", u"ab", u" "});
    if (lines.back().empty()) lines.back() = u"c";
    const auto count = static_cast<std::int32_t>(lines.size());
    vbide::Selection range;
    range.StartLine = dice.Roll(count);
    range.EndLine = range.StartLine + dice.Roll(count - range.StartLine + 1) - 1;
    const auto place = [&](std::int32_t y) {
      return dice.Roll(static_cast<std::int32_t>(lines[static_cast<std::size_t>(y) - 1].size()) + 1);
    };
    range.StartColumn = place(range.StartLine);
    range.EndColumn = place(range.EndLine);
    if (range.StartLine == range.EndLine && range.EndColumn < range.StartColumn) {
      std::swap(range.StartColumn, range.EndColumn);
    }
    const bool whole = dice.Roll(4) == 1;
    if (whole) range = {1, 1, count, static_cast<std::int32_t>(lines.back().size()) + 1};
    const Pattern& pattern = dice.Pick(patterns);
    std::u16string replacement = dice.Pick(replacements);
    const bool singleLine = dice.Roll(2) == 1;

    SearchWorld world;
    world.OpenModule(JoinLines(lines));
    world.Activate(u"M", range);
    world.Condition(whole ? gsCurModule : gsSelection, gsRegular, pattern.text);
    world.Setting().mblnRegSingleLine = singleLine;
    world.Setting().mstrReplaceStr = replacement;
    ASSERT_EQ(world.Replace(), "");
    SCOPED_TRACE("seed " + std::to_string(seed) + ": " + ToUtf8(pattern.text) + " to '" + ToUtf8(replacement) +
                 "' in " + ToUtf8(JoinLines(lines)) + " from " + std::to_string(range.StartLine) + "," +
                 std::to_string(range.StartColumn) + " to " + std::to_string(range.EndLine) + "," +
                 std::to_string(range.EndColumn) + (singleLine ? ", single line" : ""));
    workbench::Module& module = world.Module(u"M");
    if (!singleLine) replacement = ReplaceAll(ReplaceAll(replacement, u"\\n", kCrLf), u"\\r", kCrLf);
    ASSERT_EQ(ToUtf8(module.Text()), ToUtf8(ReplaceInText(pattern, lines, range, replacement, singleLine)));
    if (module.CanUndo()) module.Undo();
    ASSERT_FALSE(module.CanUndo()) << "one replace is one step";
    ASSERT_FALSE(module.Modified());
    ASSERT_EQ(ToUtf8(module.Text()), ToUtf8(JoinLines(lines)));
  }
}

}  // namespace quorvane::test
