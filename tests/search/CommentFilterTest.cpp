#include <gtest/gtest.h>

#include "addin/search/PositionInfo.h"
#include "base/Text.h"
#include "support/SearchFixture.h"

namespace quorvane::test {

namespace {

struct Row {
  const char16_t* code;
  const char16_t* text;  ///< the match: the first that a plain search finds
  bool comment;
};

}  // namespace

TEST(CommentFilter, TellsCommentsByTheLinesUpToTheEndOfTheMatch) {
  const std::vector<Row> rows{
      {u"a = 1 ' note", u"a = 1", false},
      {u"a = 1 ' note", u"note", true},
      {u"a = 1 ' note", u"1 '", true},  // the match ends on the apostrophe
      {u"a = \"it's\": word", u"word", false},
      {u"a = \"it's\": word", u"it's", false},
      {u"a = \"it's\" ' word", u"word", true},
      {u"a = \"x\"\"'y\" + word", u"word", false},  // a doubled quote ends and begins
      {u"a = \"x\" ' \" ' word", u"word", true},    // a quote inside the comment hides the second mark only
      {u"a = \" ' word", u"word", false},           // a string without an end
      {u"rem word", u"word", true},
      {u"REM word", u"word", true},
      {u"Rem x", u"rem", false},  // fewer than four characters before the end
      {u"Rem x", u"rem ", true},
      {u" rem word", u"word", false},
      {u"rem\tword", u"word", false},
      {u"x = 1: rem word", u"word", false},
      {u"remark = word", u"word", false},
      {u"' note _\nword", u"word", true},
      {u"' note _ \nword", u"word", false},  // a blank behind the mark of continuation
      {u"' note _\nx _\nword", u"word", true},
      {u"' note\nx _\nword", u"word", false},  // the line above that does not continue is not looked at
      {u"' note _\n\nword", u"word", false},
      {u"Call x( _\n  word)", u"word", false},
      {u"Call x(\"it's\", _\n  word)", u"word", false},  // strings do not go on over the line's end
      {u"word", u"word", false},
  };
  for (const Row& row : rows) {
    SearchWorld world;
    world.OpenModule(CrLf(row.code));
    for (const gsCommentStat stat : {gsIncludeComment, gsExcludeComment, gsCommentOnly}) {
      world.Condition(gsAllProjects, gsCommon, row.text);
      world.Setting().menumIgnoreComment = stat;
      ASSERT_EQ(world.Search(), "");
      const bool wanted = stat == gsIncludeComment || (stat == gsCommentOnly) == row.comment;
      EXPECT_EQ(world.page->results->Count(), wanted ? 1 : 0)
          << ToUtf8(row.code) << "\nfor " << ToUtf8(row.text) << " with " << stat;
    }
  }
}

TEST(CommentFilter, LooksThroughAllLinesOfAMatch) {
  struct MultiRow {
    const char16_t* code;
    bool comment;
  };
  // The match goes from x to y.
  const std::vector<MultiRow> rows{
      {u"x ' c\ny", true},          // no continuation is needed inside the match
      {u"x\n\ny", false},           // an empty line ends the walk
      {u"x ' c\n\ny", false},       // also below a mark
      {u"' c\nx\ny", false},        // above the match only continued lines count
      {u"' c _\nx\ny", true},       //
      {u"rem c\nx\ny ' d", false},  // behind the end does not count
  };
  for (const MultiRow& row : rows) {
    SearchWorld world;
    world.OpenModule(CrLf(row.code));
    world.Condition(gsAllProjects, gsRegular, u"x[^y]*y");
    world.Setting().menumIgnoreComment = gsCommentOnly;
    ASSERT_EQ(world.Search(), "");
    EXPECT_EQ(world.page->results->Count(), row.comment ? 1 : 0) << ToUtf8(row.code);
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
