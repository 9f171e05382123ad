#include <gtest/gtest.h>

#include "addin/core/LanguageManager.h"
#include "addin/search/LiveCondition.h"
#include "addin/search/PositionInfo.h"
#include "support/SearchFixture.h"

namespace quorvane::test {

class ConditionSnapTest : public SearchFixture {
 protected:
  std::string Description() {
    page->condSnap->TakeSnap();
    return ToUtf8(page->condSnap->Description());
  }
};

TEST(ConditionSnap, DescribesEveryCondition) {
  SearchWorld world("932");
  world.OpenModule(CrLf(u"Sub A()\n漢字\nabcd\nEnd Sub"));
  world.Activate(u"M", {2, 2, 3, 4});  // the start lies inside 漢 and moves after it
  for (const Row& row : Rows("search/ConditionSnap.rows", "Descriptions")) {
    world.Condition(static_cast<gsArea>(row.Number(0)), static_cast<gsMode>(row.Number(1)), u"x");
    world.Setting().mblnMatchCase = row.Number(2) == 1;
    world.Setting().menumIgnoreComment = static_cast<gsCommentStat>(row.Number(3));
    world.Setting().mblnWholeWord = row.Number(4) == 1;
    world.Setting().mblnRegSingleLine = row.Number(5) == 1;
    world.page->condSnap->TakeSnap();
    EXPECT_EQ(ToUtf8(world.page->condSnap->Description()), row.Bytes(6)) << row.Where();
  }
}

TEST_F(ConditionSnapTest, ProcedureDescriptionNamesTheDeclarations) {
  OpenModule(u"Dim a");
  Condition(gsCurProcedure, gsCommon, u"x");
  EXPECT_EQ(Description(), "current procedure<(Declarations)>,common,include comment");
}

TEST_F(ConditionSnapTest, SpeaksTheLanguageOfTheMoment) {
  OpenModule(u"");
  Condition(gsAllProjects, gsCommon, u"x");
  EXPECT_EQ(Description(), "project group,common,include comment");
  Globals::Language().Language = 0;
  EXPECT_EQ(Description(), "全部工程,普通,包含注释");
  EXPECT_EQ(page->caption, u"搜索'x'");
  Globals::Language().Language = 1;
}

TEST_F(ConditionSnapTest, KeepsItsValuesButNotTheReplacement) {
  OpenModule(u"x");
  Condition(gsAllProjects, gsCommon, u"old");
  Setting().mstrReplaceStr = u"old";
  page->condSnap->TakeSnap();
  Condition(gsCurModule, gsRegular, u"new");
  Setting().mstrReplaceStr = u"new";
  const ConditionSnap& snap = *page->condSnap;
  EXPECT_EQ(snap.SearchStr(), u"old");
  EXPECT_EQ(snap.Area(), gsAllProjects);
  EXPECT_EQ(snap.Mode(), gsCommon);
  EXPECT_EQ(snap.ReplaceStr(), u"new");
}

TEST_F(ConditionSnapTest, WithoutAPaneTheValuesAreNewButRegionAndTabAreNot) {
  OpenModule(CrLf(u"a\nb"));
  Condition(gsCurModule, gsCommon, u"first");
  page->condSnap->TakeSnap();
  Module(u"M").CodePane()->Window()->Close();
  Condition(gsSelection, gsRegular, u"second");
  EXPECT_THROW(page->condSnap->TakeSnap(), Error);
  EXPECT_EQ(page->condSnap->SearchStr(), u"second");
  EXPECT_EQ(page->condSnap->Area(), gsSelection);
  EXPECT_EQ(page->caption, u"Search 'first'");
  EXPECT_EQ(page->condSnap->PosInfo()->mlngY2, 2);
  for (const gsArea area : {gsCurProject, gsAllProjects}) {
    Condition(area, gsCommon, u"third");
    page->condSnap->TakeSnap();
    EXPECT_EQ(page->caption, u"Search 'third'") << "these areas need no pane";
  }
}

TEST_F(ConditionSnapTest, TheLiveConditionTakesItsRegionAnewEachTime) {
  OpenModule(CrLf(u"abc\ndef"));
  Setting().menumArea = gsSelection;
  Activate(u"M", {1, 1, 1, 2});
  LiveCondition live;
  const auto region = live.PosInfo();
  EXPECT_EQ(region->MatchStr(), u"a");
  Activate(u"M", {2, 1, 2, 4});
  EXPECT_EQ(live.PosInfo(), region);
  EXPECT_EQ(region->MatchStr(), u"def");
}

}  // namespace quorvane::test
