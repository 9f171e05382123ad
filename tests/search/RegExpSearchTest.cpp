#include <gtest/gtest.h>

#include "addin/search/PositionInfo.h"
#include "search/NaiveModule.h"
#include "support/SearchFixture.h"
#include "support/Seen.h"

namespace quorvane::test {

TEST(RegExpSearch, LineBreaksAndEmptyMatches) {
  for (const Row& row : Rows("search/RegExpSearch.rows", "LineBreaksAndEmptyMatches")) {
    SearchWorld world;
    world.OpenModule(CrLf(row.Text(0)));
    world.Condition(gsAllProjects, gsRegular, row.Text(1));
    world.Setting().mblnRegSingleLine = row.Number(2) == 1;
    EXPECT_EQ(world.Search(), "");
    EXPECT_EQ(world.Matches(), row.Bytes(3)) << row.Where();
  }
}

TEST(RegExpSearch, ASelectionIsTheWholeText) {
  for (const Row& row : Rows("search/RegExpSearch.rows", "Selections")) {
    SearchWorld world;
    world.OpenModule(CrLf(u"abcd\nefgh\nijkl"));
    world.Activate(u"M", row.Range(1));
    world.Condition(gsSelection, gsRegular, row.Text(0));
    EXPECT_EQ(world.Search(), "");
    EXPECT_EQ(world.Matches(), row.Bytes(2)) << row.Where();
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
      OthersHadTheirTurn();
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
