#include <gtest/gtest.h>

#include "addin/search/PositionInfo.h"
#include "support/SearchFixture.h"

namespace quorvane::test {

TEST(CommentFilter, TellsCommentsByTheLinesUpToTheEndOfTheMatch) {
  for (const Row& row : Rows("search/CommentFilter.rows", "Lines")) {
    SearchWorld world;
    world.OpenModule(CrLf(row.Text(0)));
    for (const gsCommentStat stat : {gsIncludeComment, gsExcludeComment, gsCommentOnly}) {
      world.Condition(gsAllProjects, gsCommon, row.Text(1));
      world.Setting().menumIgnoreComment = stat;
      ASSERT_EQ(world.Search(), "");
      const bool wanted = stat == gsIncludeComment || (stat == gsCommentOnly) == (row.Number(2) == 1);
      EXPECT_EQ(world.page->results->Count(), wanted ? 1 : 0) << row.Where() << " with " << stat;
    }
  }
}

TEST(CommentFilter, LooksThroughAllLinesOfAMatch) {
  for (const Row& row : Rows("search/CommentFilter.rows", "MatchesOverLines")) {
    SearchWorld world;
    world.OpenModule(CrLf(row.Text(0)));
    world.Condition(gsAllProjects, gsRegular, u"x[^y]*y");
    world.Setting().menumIgnoreComment = gsCommentOnly;
    ASSERT_EQ(world.Search(), "");
    EXPECT_EQ(world.page->results->Count(), row.Number(1)) << row.Where();
  }
}

TEST(CommentFilter, AMatchThatIsDroppedStillYields) {
  SearchWorld world;
  world.OpenModule(u"x ' x");
  world.Condition(gsAllProjects, gsCommon, u"x");
  world.Setting().menumIgnoreComment = gsCommentOnly;
  ASSERT_EQ(world.Search(), "");
  EXPECT_EQ(world.Matches(), "M 1,5-1,6 x");
  EXPECT_EQ(world.Events(), "begin 1\nscan M\nquery\nquery\ndone 1");
}

}  // namespace quorvane::test
