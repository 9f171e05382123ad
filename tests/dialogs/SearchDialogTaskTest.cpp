#include <gtest/gtest.h>

#include "DialogWorld.h"
#include "platform/forms/Forms.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"

namespace quorvane {
namespace {

using test::Group;

constexpr int kYes = 6;
constexpr int kNo = 7;

/// Two modules with three matches of "foo".
class SearchDialogTaskTest : public test::DialogFixture {
 protected:
  SearchDialogTaskTest() {
    OpenGroup(Group{}.Project(u"P").Module(u"M", u"foo 1\r\nfoo 2").Module(u"N", u"foo 3"));
    Activate(u"M");
  }
  frmSearchDialog& Ready(const std::u16string& text = u"foo") {
    frmSearchDialog& d = Dialog();
    d.ShowEx();
    Type(*d.cmbSearch, text);
    return d;
  }
  void Regular() { Dialog().optModeButtons[gsRegular]->Press(); }
  static std::int32_t Pages() { return Globals::gobjPageManager->mcolPages->Count(); }
  std::u16string CodeOf(const std::u16string& module) {
    const auto code = Module(module).CodePane()->CodeModule();
    return code->Lines(1, code->CountOfLines());
  }
  /// Runs `step` in the first turn that a task gives away.
  void InTheFirstTurn(std::function<void()> step) {
    platform.loop.OnYield = [step, done = false]() mutable {
      if (!std::exchange(done, true)) step();
    };
  }
};

TEST_F(SearchDialogTaskTest, TypeSearchAndRead) {
  frmSearchDialog& d = Ready();
  EXPECT_EQ(Commands(), "search edit []");
  std::vector<std::string> turns;
  platform.loop.OnYield = [&] { turns.push_back(Commands()); };
  EXPECT_TRUE(d.PressKey(13, 0));
  EXPECT_EQ(turns, (std::vector<std::string>{"cancel [M]", "cancel [M]", "cancel [N]"}));
  EXPECT_EQ(Commands(), "search edit []");
  EXPECT_EQ(Rows(), "Search1\nfoo 1\nfoo 2\nfoo 3");
  EXPECT_EQ(d.cmbSearch->List(0), u"foo");
}

TEST_F(SearchDialogTaskTest, DuringATaskOnlyCancelAndTheModuleAreAlive) {
  frmSearchDialog& d = Ready();
  std::string alive;
  InTheFirstTurn([&] {
    for (const auto& control : d.Controls().All()) {
      if (control->Enabled()) alive += ToUtf8(control->Name()) + " ";
    }
    d.cmdSearch->Press();
    d.mnuToNewTab.Press();
    EXPECT_FALSE(d.PressKey(13, 0));
    EXPECT_FALSE(d.PressAccessKey(u'm')) << "a dead key does not hand the focus on, to Cancel";
  });
  d.cmdSearch->Press();
  EXPECT_EQ(alive, "lblCurModule cmdCancel ");
  EXPECT_EQ(Rows(), "Search1\nfoo 1\nfoo 2\nfoo 3");
  EXPECT_EQ(Pages(), 1);
  EXPECT_EQ(Setting().menumSearchTo, 1);
}

TEST_F(SearchDialogTaskTest, WhichPageTakesASearch) {
  frmSearchDialog& d = Ready();
  d.cmdSearch->Press();
  Type(*d.cmbSearch, u"foo 3");
  d.cmdSearch->Press();
  EXPECT_EQ(Rows(), "Search1\nfoo 3") << "to the current tab";
  d.mnuToNewTab.Press();
  Type(*d.cmbSearch, u"foo 2");
  d.cmdSearch->Press();
  EXPECT_EQ(Rows(), "Search2\nfoo 2");
  d.mnuToCurTab.Press();
  Globals::gobjPageManager->mobjTabCtrl->Item(std::u16string(u"Search1"))->Select();
  Type(*d.cmbSearch, u"foo 1");
  d.cmdSearch->Press();
  EXPECT_EQ(Rows(), "Search1\nfoo 1");
  Globals::gobjPageManager->mcolPages->RemoveAll();
  d.cmdSearch->Press();
  EXPECT_EQ(Rows(), "Search3\nfoo 1") << "without a page one is made";
}

TEST_F(SearchDialogTaskTest, ASearchReachesTheCurrentPageAlsoWhenItsTabWasNotTold) {
  PageManager& manager = *Globals::gobjPageManager;
  manager.AddNewPage();
  manager.AddNewPage();
  bool fail = false;
  const auto before = manager.TabChange.Subscribe([&] {
    if (std::exchange(fail, false)) RaiseError(ErrorNumber::Internal);
  });
  frmSearchDialog& d = Ready();
  fail = true;  // the dialog comes after this listener
  platform.prompts.Answers = {1};
  manager.mobjTabCtrl->Item(std::u16string(u"Search1"))->Select();
  d.cmdSearch->Press();
  EXPECT_EQ(Rows(), "Search1\nfoo 1\nfoo 2\nfoo 3");
}

TEST_F(SearchDialogTaskTest, TheFirstShowFindsATaskThatIsRunning) {
  Globals::gobjPageManager->AddNewPage();
  Setting().mstrSearchStr = u"foo";
  std::string during;
  InTheFirstTurn([&] {
    Dialog().ShowEx();
    during = Commands();
  });
  ActivePage()->mobjTask->Run(kTaskSearch);
  EXPECT_EQ(during, "cancel []");
  EXPECT_EQ(Commands(), "search edit []");
}

TEST_F(SearchDialogTaskTest, HidesAsConfigured) {
  for (const test::Row& row : test::Rows("dialogs/SearchDialog.rows", "Hides")) {
    SCOPED_TRACE(row.Where());
    const bool cancel = row.Bytes(1) == "cancelled";
    frmSearchDialog& d = Ready();
    Setting().menumAutoHideSearchDlg = row.Number(0);
    std::string during;
    InTheFirstTurn([&] {
      during = Commands();
      if (cancel) d.cmdCancel->Press();
      if (cancel && d.Visible()) {
        EXPECT_TRUE(ActivePage()->mobjTask->mblnCancel);
      }
    });
    d.cmdSearch->Press();
    EXPECT_EQ(during, row.Bytes(2));
    EXPECT_EQ(d.Visible(), row.Bytes(3) == "shown");
    EXPECT_TRUE(d.cmdSearch->Enabled());
  }
}

TEST_F(SearchDialogTaskTest, CancelStopsAtTheNextMatchWithoutAMessage) {
  frmSearchDialog& d = Ready();
  InTheFirstTurn([&] { d.cmdCancel->Press(); });
  d.cmdSearch->Press();
  EXPECT_EQ(Rows(), "Search1\nfoo 1");
  EXPECT_EQ(Commands(), "search edit []");
  EXPECT_TRUE(platform.prompts.Shown.empty());
  EXPECT_EQ(Setting().mcolSearchHistory.Count(), 1);
}

TEST_F(SearchDialogTaskTest, AFailedTaskIsShownWithTheDialogAtRest) {
  frmSearchDialog& d = Ready(u"foo(");
  Regular();
  Setting().menumAutoHideSearchDlg = 1;
  platform.prompts.Answers = {1};
  d.cmdSearch->Press();
  ASSERT_EQ(platform.prompts.Shown.size(), 1u) << "the pattern is no regular expression";
  EXPECT_EQ(Commands(), "search replace edit [] hidden");
  EXPECT_EQ(Setting().mcolSearchHistory.Count(), 1);
}

TEST_F(SearchDialogTaskTest, EscHidesAndTheTaskRunsOnAndShowExFindsIt) {
  frmSearchDialog& d = Ready();
  std::vector<std::string> states;
  InTheFirstTurn([&] {
    EXPECT_TRUE(d.PressKey(27, 0));
    states.push_back(Commands());
    Activate(u"M", {2, 5, 2, 6});
    d.ShowEx();
    states.push_back(Commands() + ToUtf8(d.cmbSearch->Text()));
  });
  d.cmdSearch->Press();
  EXPECT_EQ(states, (std::vector<std::string>{"cancel [M] hidden", "cancel []foo"}));
  EXPECT_EQ(Rows(), "Search1\nfoo 1\nfoo 2\nfoo 3");
}

TEST_F(SearchDialogTaskTest, ADoubleClickDuringATaskTakesTheSelectionAndWakesNoButton) {
  frmSearchDialog& d = Ready();
  std::string during;
  InTheFirstTurn([&] {
    Activate(u"M", {2, 5, 2, 6});
    d.DoubleClick();
    during = Commands() + ToUtf8(Setting().mstrSearchStr);
  });
  d.cmdSearch->Press();
  EXPECT_EQ(during, "cancel [M]2");
  EXPECT_EQ(Rows(), "Search1\nfoo 1\nfoo 2\nfoo 3");
}

TEST_F(SearchDialogTaskTest, FollowsRepeatedSearchesOfTheCurrentPageAlone) {
  frmSearchDialog& d = Ready();
  d.cmdSearch->Press();
  const auto first = ActivePage();
  d.mnuToNewTab.Press();
  d.cmdSearch->Press();
  std::string during;
  InTheFirstTurn([&] { during = Commands(); });
  first->RefreshResult();
  EXPECT_EQ(during, "search edit []");
  Setting().menumAutoHideSearchDlg = 0;
  InTheFirstTurn([&] { during = Commands(); });
  ActivePage()->RefreshResult();
  EXPECT_EQ(during, "cancel [M] hidden");
}

TEST_F(SearchDialogTaskTest, TheDialogIsAtRestBehindASearchWhosePageWasClosed) {
  frmSearchDialog& d = Ready();
  InTheFirstTurn([] { Globals::gobjPageManager->mcolPages->RemoveAll(); });
  d.cmdSearch->Press();
  EXPECT_EQ(Commands(), "search edit []");
  d.cmdSearch->Press();
  EXPECT_EQ(Rows(), "Search2\nfoo 1\nfoo 2\nfoo 3");
}

TEST_F(SearchDialogTaskTest, UnloadedDuringItsTaskTheDialogLeavesTheTaskAlone) {
  Ready();
  const auto gone = std::dynamic_pointer_cast<frmSearchDialog>(forms::TheForms().Instance(u"frmSearchDialog"));
  InTheFirstTurn([&] {
    gone->Unload();
    Setting().mstrSearchStr = u"of another dialog";
  });
  gone->cmdSearch->Press();
  EXPECT_EQ(Rows(), "Search1\nfoo 1\nfoo 2\nfoo 3");
  EXPECT_EQ(gone->cmbSearch->Text(), u"foo");
  EXPECT_TRUE(platform.prompts.Shown.empty());
}

TEST_F(SearchDialogTaskTest, ReplaceAllAsksFirst) {
  frmSearchDialog& d = Ready(u"fo+ (.)");
  Regular();
  EXPECT_EQ(Commands(), "search replace edit []");
  Type(*d.cmbReplace, u"bar$1");
  platform.app.Title = u"the title";
  platform.prompts.Answers = {kNo, kYes};
  d.cmdReplace->Press();
  EXPECT_EQ(CodeOf(u"M"), u"foo 1\r\nfoo 2");
  EXPECT_EQ(Setting().mcolSearchHistory.Count() + Setting().mcolReplaceHistory.Count(), 0);
  d.cmdReplace->Press();
  EXPECT_EQ(CodeOf(u"M"), u"bar1\r\nbar2");
  EXPECT_EQ(CodeOf(u"N"), u"bar3");
  EXPECT_EQ(d.cmbSearch->List(0), u"fo+ (.)");
  EXPECT_EQ(Setting().mcolReplaceHistory.Join(u","), u"bar$1");
  EXPECT_EQ(Pages(), 0);
  const test::ScriptedPrompts::Box box{u"Are you sure to replace all?", 324, u"the title"};
  EXPECT_EQ(platform.prompts.Shown, (std::vector{box, box}));
  EXPECT_EQ(Commands(), "search replace edit []");
}

TEST_F(SearchDialogTaskTest, BehindAReplaceASearchReachesTheCurrentPage) {
  frmSearchDialog& d = Ready();
  d.cmdSearch->Press();
  Regular();
  Type(*d.cmbReplace, u"foo");
  platform.prompts.Answers = {kYes};
  d.cmdReplace->Press();
  std::string during;
  InTheFirstTurn([&] { during = Commands(); });
  ActivePage()->RefreshResult();
  EXPECT_EQ(during, "cancel [M]") << "the page's task is watched again";
  Type(*d.cmbSearch, u"foo 3");
  d.cmdSearch->Press();
  EXPECT_EQ(Rows(), "Search1\nfoo 3");
}

TEST_F(SearchDialogTaskTest, ARunningReplaceIsFollowedToItsEndWhateverTheTabsDo) {
  frmSearchDialog& d = Ready();
  Regular();
  Type(*d.cmbReplace, u"bar");
  Setting().menumAutoHideSearchDlg = 1;
  std::vector<std::string> modules;
  auto onModule = d.lblCurModule->Changed.Subscribe([&] {
    if (d.lblCurModule->Caption().empty()) return;
    modules.push_back(Commands());
    Globals::gobjPageManager->AddNewPage();
  });
  platform.prompts.Answers = {kYes};
  d.cmdReplace->Press();
  EXPECT_EQ(modules, (std::vector<std::string>{"cancel [M]", "cancel [N]"}));
  EXPECT_EQ(Commands(), "search replace edit [] hidden");
  onModule.Reset();
  d.ShowEx();
  Type(*d.cmbSearch, u"bar");
  d.cmdSearch->Press();
  EXPECT_EQ(Rows(), "Search2\nbar 1\nbar 2\nbar 3") << "the page selected last";
}

}  // namespace
}  // namespace quorvane
