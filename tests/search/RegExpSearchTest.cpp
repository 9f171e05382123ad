#include <gtest/gtest.h>

#include "addin/search/PositionInfo.h"
#include "base/Text.h"
#include "search/NaiveModule.h"
#include "support/SearchFixture.h"
#include "vbide/VBIDE.h"

namespace quorvane::test {

TEST(RegExpSearch, LineBreaksAndEmptyMatches) {
  struct Row {
    const char16_t* code;
    const char16_t* pattern;
    bool singleLine;
    std::string matches;
  };
  const std::vector<Row> rows{
      {u"ab\ncd", u"b\\r\\nc", false, "M 1,2-2,2 b\\r\\nc"},
      {u"ab\ncd", u"b\\r\\nc", true, "M 1,2-2,2 b\\r\\nc"},
      {u"ab\ncd", u"b\\s+c", false, "M 1,2-2,2 b\\r\\nc"},
      {u"ab\ncd", u"^..$", false, "M 1,1-1,3 ab\nM 2,1-2,3 cd"},
      {u"ab\ncd", u"^..", true, "M 1,1-1,3 ab"},
      {u"ab\ncd", u"..$", true, "M 2,1-2,3 cd"},
      {u"ab\ncd", u".+", false, "M 1,1-1,3 ab\nM 2,1-2,3 cd"},
      {u"ab\ncd", u"$", false, "M 1,3-1,3 \nM 2,3-2,3 "},
      {u"ab\ncd", u"^", false, "M 1,1-1,1 \nM 2,1-2,1 "},
      {u"ab\ncd", u"\\b", false, "M 1,1-1,1 \nM 1,3-1,3 \nM 2,1-2,1 \nM 2,3-2,3 "},
      {u"ab\n\ncd", u"\\n", false, "M 1,4-2,1 \\n\nM 2,2-3,1 \\n"},  // the LF belongs to its line: length + 2
      {u"ab\ncd", u"[^x]*", true, "M 1,1-2,3 ab\\r\\ncd\nM 2,3-2,3 "},
      {u"x\n\n", u"x[\\s\\S]*", false, "M 1,1-2,1 x\\r\\n"},
  };
  for (const Row& row : rows) {
    SearchWorld world;
    world.OpenModule(CrLf(row.code));
    world.Condition(gsAllProjects, gsRegular, row.pattern);
    world.Setting().mblnRegSingleLine = row.singleLine;
    EXPECT_EQ(world.Search(), "");
    EXPECT_EQ(world.Matches(), row.matches) << ToUtf8(row.pattern) << " single line " << row.singleLine;
  }
}

TEST(RegExpSearch, ASelectionIsTheWholeText) {
  struct Row {
    const char16_t* pattern;
    vbide::Selection selection;
    std::string matches;
  };
  const std::vector<Row> rows{
      {u"^.", {1, 3, 2, 3}, "M 1,3-1,4 c\nM 2,1-2,2 e"},
      {u".$", {1, 3, 2, 3}, "M 1,4-1,5 d\nM 2,2-2,3 f"},
      {u"^..$", {2, 2, 2, 4}, "M 2,2-2,4 fg"},
      {u"\\w+", {1, 3, 3, 2}, "M 1,3-1,5 cd\nM 2,1-2,5 efgh\nM 3,1-3,2 i"},
      {u"d\\r\\n", {1, 3, 2, 1}, "M 1,4-2,1 d\\r\\n"},
      {u"$", {1, 2, 1, 5}, "M 1,5-1,5 "},
  };
  for (const Row& row : rows) {
    SearchWorld world;
    world.OpenModule(CrLf(u"abcd\nefgh\nijkl"));
    world.Activate(u"M", row.selection);
    world.Condition(gsSelection, gsRegular, row.pattern);
    EXPECT_EQ(world.Search(), "");
    EXPECT_EQ(world.Matches(), row.matches) << ToUtf8(row.pattern);
  }
}

/// An edit during a yield moves lines under the offsets that are still to come: each place must be that of the text as
/// it is when the match is taken.
TEST(RegExpSearch, AnEditDuringTheSearchIsSeenAtOnce) {
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    Dice dice(seed);
    const auto lines = RandomLines(dice, 12, {u"a", u"b", u"ab", u"'"});
    if (lines.back().empty()) continue;
    SearchWorld world;
    world.OpenModule(JoinLines(lines));
    workbench::Module& module = world.Module(u"M");
    std::vector<std::pair<std::int32_t, std::int32_t>> expected;
    std::vector<std::pair<std::int32_t, std::int32_t>> found;
    const std::u16string text = module.Text();
    std::size_t at = text.find(u"ab");
    std::vector<std::u16string> now = lines;
    const auto added = world.page->results->OnAdd.Subscribe([&](const std::shared_ptr<PositionInfo>& pi) {
      const NaiveModule naive(now);
      expected.push_back(naive.Place(1, static_cast<std::int32_t>(at) + 1));
      expected.push_back(naive.Place(1, static_cast<std::int32_t>(at) + 3));
      found.emplace_back(pi->mlngY1, pi->mlngX1);
      found.emplace_back(pi->mlngY2, pi->mlngX2);
      at = text.find(u"ab", at + 2);
    });
    world.platform.loop.OnYield = [&] {
      const std::int32_t line = dice.Roll(static_cast<std::int32_t>(now.size()));
      switch (dice.Roll(3)) {
        case 1:
          module.InsertLines(line, u"abab");
          now.insert(now.begin() + line - 1, u"abab");
          break;
        case 2:
          if (now.size() == 1) break;
          module.DeleteLines(line, 1);
          now.erase(now.begin() + line - 1);
          break;
        default:
          break;
      }
    };
    world.Condition(gsAllProjects, gsRegular, u"ab");
    ASSERT_EQ(world.Search(), "");
    EXPECT_EQ(found, expected) << "seed " << seed;
    EXPECT_EQ(at, text.npos) << "seed " << seed;
    EXPECT_EQ(module.Text(), JoinLines(now));
  }
}

}  // namespace quorvane::test
