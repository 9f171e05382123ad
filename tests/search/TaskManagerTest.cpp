#include <gtest/gtest.h>

#include "addin/core/ErrorManager.h"
#include "addin/search/PositionInfo.h"
#include "support/PassingModule.h"
#include "support/SearchFixture.h"

namespace quorvane::test {

class TaskManagerTest : public SearchFixture {
 protected:
  /// Two projects, with every kind of component that a walk passes over.
  void OpenShop() {
    Open(Group{}
             .Project(u"App")
             .Module(u"Main", CrLf(u"Dim total\nSub Sum()\n  total = total + 1\nEnd Sub"))
             .Resource(u"Res")
             .Form(u"Empty", u"")
             .Class(u"Order", u"Dim Subtotal ' total")
             .Project(u"Lib")
             .RelatedDocument(u"Notes")
             .Module(u"Tools", u"Sub Total(): End Sub"));
  }

  static std::string Told(std::int32_t error, const std::string& text) { return std::to_string(error) + " " + text; }
};

TEST_F(TaskManagerTest, AreasTimesModes) {
  for (const Row& row : Rows("search/TaskManager.rows", "AreasTimesModes")) {
    for (const gsMode mode : {gsCommon, gsPattern, gsRegular}) {
      OpenShop();
      Activate(u"Main", {3, 5, 3, 18});
      Condition(static_cast<gsArea>(row.Number(1)), mode, row.Text(2));
      EXPECT_EQ(Search(), "");
      const std::size_t column = row.Count() > 4 ? 3 + static_cast<std::size_t>(mode) : 3;
      EXPECT_EQ(Matches(), Join(row.List(column))) << row.Where() << mode;
    }
  }
}

TEST_F(TaskManagerTest, CaseAndWholeWord) {
  for (const Row& row : Rows("search/TaskManager.rows", "CaseAndWholeWord")) {
    OpenModule(u"Sub sub sub_x");
    Condition(gsAllProjects, static_cast<gsMode>(row.Number(3)), u"sub");
    Setting().mblnMatchCase = row.Number(1) == 1;
    Setting().mblnWholeWord = row.Number(2) == 1;
    EXPECT_EQ(Search(), "");
    EXPECT_EQ(Matches(), Join(row.List(4))) << row.Where();
  }
}

TEST_F(TaskManagerTest, SelectionsBoundTheMatches) {
  for (const Row& row : Rows("search/TaskManager.rows", "Selections")) {
    for (const gsMode mode : {gsCommon, gsPattern, gsRegular}) {
      OpenModule(CrLf(u"aba aba aba\naba"));
      Activate(u"M", row.Range(1));
      Condition(gsSelection, mode, u"aba");
      EXPECT_EQ(Search(), "");
      EXPECT_EQ(Matches(), Join(row.List(2))) << row.Where() << mode;
    }
  }
}

TEST(TaskManagerWide, WideCharactersBeforeAndInTheRegion) {
  SearchWorld world("932");
  for (const gsMode mode : {gsCommon, gsPattern, gsRegular}) {
    world.OpenModule(CrLf(u"漢字x漢x\nx"));
    world.Condition(gsAllProjects, mode, u"x");
    EXPECT_EQ(world.Search(), "");
    EXPECT_EQ(world.Matches(), "M 1,3-1,4 x\nM 1,5-1,6 x\nM 2,1-2,2 x") << mode;
    world.Activate(u"M", {1, 6, 2, 2});  // after the first x, which stands in column 5
    world.Condition(gsSelection, mode, u"漢x");
    EXPECT_EQ(world.Search(), "");
    EXPECT_EQ(world.Matches(), "M 1,4-1,6 漢x") << mode;
    world.Activate(u"M", {1, 2, 1, 6});  // begins inside the first character: from the second one on
    world.Condition(gsSelection, mode, mode == gsRegular ? u"." : mode == gsPattern ? u"?" : u"字");
    EXPECT_EQ(world.Search(), "");
    EXPECT_EQ(world.Matches(), mode == gsCommon ? "M 1,2-1,3 字" : "M 1,2-1,3 字\nM 1,3-1,4 x") << mode;
  }
}

TEST_F(TaskManagerTest, EventsOfASearch) {
  OpenShop();
  Condition(gsAllProjects, gsCommon, u"sub");
  const auto added = page->results->OnAdd.Subscribe([this](const std::shared_ptr<PositionInfo>& pi) {
    EXPECT_EQ(pi->mlngID, page->results->Count());
    EXPECT_EQ(pi->mobjParent, page->results.get());
    EXPECT_TRUE(page->task.Running());
  });
  EXPECT_EQ(Search(), "");
  EXPECT_EQ(Events(), "begin 1\nscan Main\nquery\nquery\nscan Order\nquery\nscan Tools\nquery\nquery\ndone 1");
  EXPECT_EQ(platform.loop.Yields, 5);
  EXPECT_EQ(page->caption, u"Search 'sub'");
  EXPECT_EQ(page->results->ModuleCount(), 3);
}

TEST_F(TaskManagerTest, WithoutAnActiveProjectNothingIsScanned) {
  Open(Group{});
  Condition(gsCurProject, gsCommon, u"x");
  EXPECT_EQ(Search(), "");
  EXPECT_EQ(Events(), "begin 1\ndone 1");
  EXPECT_EQ(page->results->Count(), 0);
  EXPECT_EQ(page->condSnap->Description(), u"current project<>,common,include comment");
}

TEST_F(TaskManagerTest, FailuresEndWithOneTaskDone) {
  const std::string noPane = Told(kErrNoCodePane, "Cannot find active codepane!");
  OpenShop();
  Condition(gsCurProject, gsCommon, u"total");
  EXPECT_EQ(Search(), "");
  const std::string before = Matches();
  EXPECT_NE(Events(), "");
  Condition(gsCurModule, gsCommon, u"other");
  EXPECT_EQ(Search(), noPane);
  EXPECT_EQ(Events(), "begin 1\ndone 1");
  EXPECT_EQ(Matches(), before) << "the old results are not cleared";
  EXPECT_EQ(page->caption, u"Search 'total'");

  for (const gsMode mode : {gsCommon, gsPattern}) {
    Condition(gsAllProjects, mode, u"total");
    EXPECT_EQ(Replace(), Told(kErrReplaceMode, "Common/Pattern replace"));
    EXPECT_EQ(Events(), "begin 2\nscan Main\ndone 2");
  }
  Condition(gsCurModule, gsRegular, u"total");
  EXPECT_EQ(Replace(), noPane);
  EXPECT_EQ(Events(), "begin 2\ndone 2");
  EXPECT_EQ(Matches(), before) << "a replace does not touch results";
}

TEST_F(TaskManagerTest, ABadPatternAddsNothing) {
  OpenShop();
  Condition(gsAllProjects, gsRegular, u"to(tal");
  EXPECT_NE(Search(), "");
  EXPECT_EQ(Events(), "begin 1\nscan Main\ndone 1");
  EXPECT_EQ(page->results->Count(), 0);
  EXPECT_NE(Replace(), "");
  EXPECT_EQ(Events(), "begin 2\nscan Main\ndone 2");
}

TEST_F(TaskManagerTest, AHandlersFailureEndsTheRunWithOneTaskDone) {
  OpenShop();
  Condition(gsAllProjects, gsCommon, u"total");
  platform.loop.Post([] { RaiseError(ErrorNumber::TypeMismatch); });
  EXPECT_EQ(Search(), "13 Type mismatch");
  EXPECT_EQ(Events(), "begin 1\nscan Main\ndone 1");
  EXPECT_EQ(Matches(), "Main 1,5-1,10 total") << "what was found stays";
}

TEST_F(TaskManagerTest, CancelTakesEffectAtTheNextMatch) {
  const std::string canceled = Told(kErrUserCanceled, "User canceled!");
  for (const gsMode mode : {gsCommon, gsRegular}) {
    for (const Row& row : Rows("search/TaskManager.rows", "Cancel")) {
      OpenShop();
      Condition(gsAllProjects, mode, u"total");
      platform.loop.Yields = 0;
      platform.loop.OnYield = [&] {
        if (platform.loop.Yields == row.Number(1)) page->task.mblnCancel = true;
      };
      EXPECT_EQ(Search(), canceled) << row.Where();
      EXPECT_EQ(Events(), Join(row.List(2))) << row.Where();
      EXPECT_EQ(Matches(), Join(row.List(3))) << row.Where();
      EXPECT_TRUE(page->task.mblnCancel) << "a listener of TaskDone can tell";
      platform.loop.OnYield = {};
    }
  }
  // The last run left the flag set: the next one wipes it.
  EXPECT_EQ(Search(), "");
  EXPECT_EQ(page->results->Count(), 6);
}

TEST_F(TaskManagerTest, AListenerOfQueryCancelsByReference) {
  OpenShop();
  Condition(gsAllProjects, gsCommon, u"total");
  const auto query = page->task.Query.Subscribe([](bool& cancel) { cancel = true; });
  EXPECT_EQ(Search(), Told(kErrUserCanceled, "User canceled!"));
  EXPECT_EQ(Matches(), "Main 1,5-1,10 total");
}

TEST_F(TaskManagerTest, RepeatKeepsTheConditionButNotTheProject) {
  OpenShop();
  Condition(gsCurProject, gsCommon, u"total");
  Setting().mstrReplaceStr = u"old";
  EXPECT_EQ(Search(), "");
  Condition(gsAllProjects, gsRegular, u"Sub");
  Setting().mstrReplaceStr = u"new";
  host->SetActiveProject(host->Projects()[1]);
  Events();
  EXPECT_EQ(Search(kTaskRepeatSearch), "");
  EXPECT_EQ(Events(), "begin 5\nscan Tools\nquery\ndone 5");
  EXPECT_EQ(Matches(), "Tools 1,5-1,10 Total");
  EXPECT_EQ(page->condSnap->Description(), u"current project<App>,common,include comment");
  EXPECT_EQ(page->condSnap->SearchStr(), u"total");
  EXPECT_EQ(page->condSnap->ReplaceStr(), u"new");
  EXPECT_EQ(page->caption, u"Search 'total'");
}

TEST_F(TaskManagerTest, RepeatKeepsTheNumbersOfTheRegion) {
  for (const gsMode mode : {gsCommon, gsRegular}) {
    OpenModule(CrLf(u"x1\nx2\nx3\nx4"));
    Activate(u"M", {2, 1, 3, 3});
    Condition(gsSelection, mode, u"x.");
    if (mode == gsCommon) Setting().mstrSearchStr = u"x";
    EXPECT_EQ(Search(), "");
    Module(u"M").InsertLines(1, u"x0");
    Activate(u"M", {1, 1, 1, 1});
    EXPECT_EQ(Search(kTaskRepeatSearch), "");
    EXPECT_EQ(Matches(), mode == gsCommon ? "M 2,1-2,2 x\nM 3,1-3,2 x" : "M 2,1-2,3 x1\nM 3,1-3,3 x2");
  }
}

TEST_F(TaskManagerTest, ModulesAreCountedByIdentity) {
  OpenShop();
  Condition(gsCurModule, gsCommon, u"total");
  Activate(u"Main");
  EXPECT_EQ(Search(), "");
  EXPECT_EQ(Search(), "") << "again, after a Clear";
  EXPECT_EQ(page->results->ModuleCount(), 1);
  ResultCollection& results = *page->results;
  const auto another = std::make_shared<PositionInfo>();
  another->GetAllCode(Module(u"Tools").CodePane()->CodeModule());
  results.Add(another);
  EXPECT_EQ(results.Count(), 4);
  EXPECT_EQ(results.ModuleCount(), 2);
  int cleared = 0;
  const auto clear = results.OnClear.Subscribe([&] { ++cleared; });
  results.Clear();
  results.Clear();
  EXPECT_EQ(cleared, 2) << "also when there is nothing";
  EXPECT_EQ(results.Count() + results.ModuleCount(), 0);
  EXPECT_EQ(another->mobjParent, nullptr);
  EXPECT_EQ(another->mobjCodeObject, nullptr);
  results.Add(std::make_shared<PositionInfo>());
  EXPECT_EQ(results.Item(1)->mlngID, 1);
  for (const std::int32_t index : {0, 2, -1}) EXPECT_THROW(results.Item(index), Error) << index;
}

namespace {

/// A module of a host that searches on after the end of the range it was given.
class Overreaching final : public PassingModule {
 public:
  using PassingModule::PassingModule;
  bool Find(std::u16string_view target, vbide::Selection& range, bool wholeWord, bool matchCase,
            bool patternSearch) const override {
    range.EndLine = CountOfLines();
    range.EndColumn = 100;
    return PassingModule::Find(target, range, wholeWord, matchCase, patternSearch);
  }
};

}  // namespace

TEST_F(TaskManagerTest, AMatchBehindTheRegionEndsTheScan) {
  OpenModule(CrLf(u"x x\nx x\nx x"));
  for (const vbide::Selection& selection : {vbide::Selection{1, 2, 2, 2}, {1, 2, 2, 3}}) {
    Activate(u"M", selection);
    Condition(gsSelection, gsCommon, u"x");
    EXPECT_EQ(Search(), "");
    page->condSnap->mobjPosInfo->mobjCodeObject = std::make_shared<Overreaching>(Module(u"M").CodePane()->CodeModule());
    EXPECT_EQ(Search(kTaskRepeatSearch), "");
    EXPECT_EQ(Matches(), "M 1,3-1,4 x\nM 2,1-2,2 x") << selection.EndColumn;
  }
  Activate(u"M", {1, 1, 1, 3});
  EXPECT_EQ(Search(), "");
  page->condSnap->mobjPosInfo->mobjCodeObject = std::make_shared<Overreaching>(Module(u"M").CodePane()->CodeModule());
  EXPECT_EQ(Search(kTaskRepeatSearch), "");
  EXPECT_EQ(Matches(), "M 1,1-1,2 x");
}

/// The module shrinks and grows while it is searched: the scan goes on from its numbers and comes to an end.
TEST_F(TaskManagerTest, FindGoesOnBehindAnEdit) {
  OpenModule(CrLf(u"x\nx\nx\nx"));
  Condition(gsAllProjects, gsCommon, u"x");
  platform.loop.Post([this] { Module(u"M").InsertLines(1, u"x"); });
  EXPECT_EQ(Search(), "");
  EXPECT_EQ(Matches(), "M 1,1-1,2 x\nM 2,1-2,2 x\nM 3,1-3,2 x\nM 4,1-4,2 x") << "the region keeps its last line";
  OpenModule(CrLf(u"x\nx\nx\nx"));
  platform.loop.Post([this] { Module(u"M").DeleteLines(1, 4); });
  EXPECT_EQ(Search(), "");
  EXPECT_EQ(page->results->Count(), 1);
}

}  // namespace quorvane::test
