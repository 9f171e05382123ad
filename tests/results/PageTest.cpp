#include "ResultWindowFixture.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/ObjStat.h"
#include "addin/results/ListPainter.h"
#include "platform/forms/Forms.h"

namespace quorvane::test {

namespace {

Group TwoModules() {
  return Group{}
      .Project(u"P")
      .Module(u"M", CrLf(u"x = 1\nSub A()\n  x = x\nEnd Sub"))
      .Module(u"N", CrLf(u"'<x>\nDim b"));
}

constexpr const char* kFourRows =
    "1: P\\M\\Proc\\(Declarations)[1,1]x = 1\n"
    "2: P\\M\\Proc\\A[3,3]  x = x\n"
    "3: P\\M\\Proc\\A[3,7]  x = x\n"
    "4: P\\N\\Proc\\(Declarations)[1,3]'<x>";

constexpr const char* kCondition = " project group,common,include comment";

class PageTest : public testing::Test, public ResultWorld {
 protected:
  PageTest() : ResultWorld(TwoModules()) {}

  /// A fresh search with a row selected, 0-based.
  void SearchAndSelect(std::int32_t row) {
    EXPECT_EQ(Search(u"x"), "");
    List().SetListIndex(row);
  }
};

}  // namespace

TEST(PageOfLongLines, ALineThatIsTooLongCostsTheRestOfItsModuleAndIsTold) {
  for (const char16_t* end : {u"", u"x\nx x"}) {
    const std::u16string code = CrLf(u"x\n" + std::u16string(33000, u'a') + end);
    ResultWorld world(Group{}.Project(u"P").Module(u"M", code).Module(u"N", u"x").Module(u"O", code));
    for (const gsMode mode : {gsCommon, gsPattern, gsRegular}) {
      SCOPED_TRACE(mode);
      const bool told = mode != gsRegular || *end != u'\0';  // offsets need no columns where nothing matches
      if (told) world.platform.prompts.Answers = {1};
      EXPECT_EQ(world.Search(u"x", mode), "");
      EXPECT_EQ(world.Rows(),
                "1: P\\M\\Proc\\(Declarations)[1,1]x\n2: P\\N\\Proc\\(Declarations)[1,1]x\n"
                "3: P\\O\\Proc\\(Declarations)[1,1]x");
      EXPECT_EQ(world.Active().mcolResult->Count(), 3) << "no number is lost";
      EXPECT_EQ(world.Active().mobjFilter->Item(3).Number(MatchField::ID), 3);
      const std::u16string words =
          u", line 2: the line is longer than 32767 columns; this module was searched up to there.";
      ASSERT_EQ(world.platform.prompts.Shown.size(), told ? 1U : 0U);
      if (told) {
        EXPECT_EQ(world.platform.prompts.Shown[0].text, u"M" + words + u"\r\nO" + words);
      }
      world.platform.prompts.Shown.clear();
    }
  }
}

TEST_F(PageTest, ItsControlsStandInTheDocumentUntilItCloses) {
  Pages().AddNewPage();
  const auto names = [this] {
    std::string text;
    for (const auto& control : Doc().Controls().All()) {
      const auto container = control->Container();
      text += ToUtf8(control->Name()) + (control->Visible() ? "" : " hidden") +
              (container ? " in " + ToUtf8(container->Name()) : "") + "; ";
    }
    return text;
  };
  EXPECT_EQ(names(),
            "mobjPanelSearch1; mobjLabelSearch1 in mobjPanelSearch1; mlstResultListSearch1 in mobjPanelSearch1; ");
  EXPECT_EQ(Active().mobjTab->Panel(), Active().mobjPanel);
  Pages().AddNewPage();
  EXPECT_FALSE(Doc().Controls().Item(u"mobjPanelSearch1")->Visible()) << "another tab is in front";

  EXPECT_EQ(Search(u"x"), "");
  const auto closed = std::dynamic_pointer_cast<Page>(Pages().ActivePage());
  const auto matches = closed->mcolResult;
  Doc().vbalDTabControl1->PressClose(closed->mobjTab);
  EXPECT_EQ(matches->Count(), 0) << "whoever holds the matches holds none of a closed page";
  EXPECT_EQ(names(),
            "mobjPanelSearch1; mobjLabelSearch1 in mobjPanelSearch1; mlstResultListSearch1 in mobjPanelSearch1; ");
  EXPECT_EQ(closed->mobjTask, nullptr);
  EXPECT_EQ(closed->mlstResultList, nullptr);
  EXPECT_EQ(Raised([&] { closed->ListHWnd(); }), 91);
}

TEST_F(PageTest, AClosedPageLeavesNothingBehind) {
  const std::string_view classes[] = {"Page",          "ListPainter",  "FilterManager", "ResultCollection",
                                      "ConditionSnap", "PositionInfo", "TaskManager"};
  std::vector<std::int32_t> before;
  for (const auto name : classes) before.push_back(ObjStat::Count(name));
  EXPECT_EQ(Search(u"x"), "");
  EXPECT_GT(ObjStat::Count("PositionInfo"), 3);
  Pages().mcolPages->RemoveAll();
  std::vector<std::int32_t> after;
  for (const auto name : classes) after.push_back(ObjStat::Count(name));
  EXPECT_EQ(after, before);
}

TEST_F(PageTest, TheStatusLineFollowsEachMatchAndTheFirstOneOpensTheWindow) {
  Pages().AddNewPage();
  std::vector<std::string> captions;
  const auto onLabel = Active().mobjLabel->Changed.Subscribe(
      [&] { captions.push_back(Status() + (Window().Visible() ? " open" : " closed")); });
  EXPECT_FALSE(Active().CanRefresh());
  Active().UpdateStatus();
  EXPECT_EQ(Status(), "") << "nothing was searched here";
  EXPECT_EQ(Search(u"x"), "");
  // The window opens after the writing of the label.
  EXPECT_EQ(captions, (std::vector<std::string>{
                          std::string("module:0 match:0 show:0") + kCondition + " closed",
                          std::string("module:1 match:1 show:1") + kCondition + " closed",
                          std::string("module:1 match:2 show:2") + kCondition + " open",
                          std::string("module:1 match:3 show:3") + kCondition + " open",
                          std::string("module:2 match:4 show:4") + kCondition + " open",
                      }));
  EXPECT_EQ(Rows(), kFourRows);
  EXPECT_EQ(ToUtf8(Active().mobjTab->ToolTipText()), Status());
  EXPECT_EQ(Active().mobjTab->Caption(), u"Search 'x'");
  EXPECT_TRUE(Active().CanRefresh());

  Window().SetVisible(false);
  EXPECT_EQ(Search(u"nowhere"), "");
  EXPECT_EQ(Rows(), "");
  EXPECT_FALSE(Window().Visible()) << "no match, no window";
  Globals::Language().Language = 0;
  Active().UpdateStatus();
  EXPECT_EQ(Status().substr(0, 26), "模块:0 匹配:0 显示:0");
}

TEST_F(PageTest, EachPageRepeatsItsOwnSearch) {
  EXPECT_EQ(Search(u"x"), "");
  Pages().AddNewPage();
  EXPECT_EQ(Search(u"Dim"), "");
  EXPECT_EQ(Rows(), "1: P\\N\\Proc\\(Declarations)[2,1]Dim b");
  Setting().mstrSearchStr = u"b";
  Active().RefreshResult();
  EXPECT_EQ(Rows(), "1: P\\N\\Proc\\(Declarations)[2,1]Dim b");
  Doc().vbalDTabControl1->Item(u"Search1")->Select();
  Active().RefreshResult();
  EXPECT_EQ(Rows(), kFourRows);
}

TEST_F(PageTest, AStylesheetMayHideMatchesAndRowsStillLeadToTheirs) {
  Setting().SetXSL(
      Stylesheet(u"<xsl:choose><xsl:when test='@ID = 2'><xsl:text>   </xsl:text></xsl:when>"
                 u"<xsl:when test='@ID = 3'><xsl:text>&#9;</xsl:text></xsl:when>"
                 u"<xsl:otherwise>  <xsl:value-of select='@Line'/></xsl:otherwise></xsl:choose>"));
  EXPECT_EQ(Search(u"x"), "");
  EXPECT_EQ(Rows(), "1: x = 1\n3: \t\n4: '&lt;x&gt;");
  EXPECT_EQ(Status(), std::string("module:2 match:4 show:3") + kCondition);
  List().SetListIndex(2);
  List().DblClick.Raise();
  EXPECT_EQ(Selection(), "N 1,3-1,4");
}

TEST_F(PageTest, AChangedStylesheetFillsTheListAnew) {
  EXPECT_EQ(Search(u"x"), "");
  const std::u16string byDefault = Setting().XSL();
  List().SetHorizontalExtent(700);
  Setting().SetXSL(u"<not well-formed");
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(Status(), std::string("module:2 match:4 show:0") + kCondition);
  EXPECT_EQ(Boxes(), "");
  Setting().SetXSL(byDefault);
  EXPECT_EQ(Rows(), kFourRows);
  EXPECT_EQ(List().HorizontalExtent(), 700) << "the range stays";

  platform.prompts.Answers = {1};
  Setting().SetXSL(Stylesheet(u"<xsl:message terminate='yes'>no</xsl:message>"));
  EXPECT_NE(Boxes(), "");
  EXPECT_EQ(Rows(), "");
}

TEST_F(PageTest, LocatingStepsThroughTheRowsAndStopsAtTheEnds) {
  Pages().AddNewPage();
  Active().LocateNextResult();
  Active().LocatePrevResult();
  EXPECT_EQ(Selection(), "none") << "an empty list";
  EXPECT_EQ(Search(u"x"), "");
  Active().LocatePrevResult();
  EXPECT_EQ(Selection(), "none") << "no selection, nothing before it";

  const struct {
    const char* step;
    std::int32_t row;
    const char* selection;
  } steps[] = {
      {"next", 0, "M 1,1-1,2"}, {"prev", 0, "M 1,1-1,2"}, {"next", 1, "M 3,3-3,4"}, {"next", 2, "M 3,7-3,8"},
      {"next", 3, "N 1,3-1,4"}, {"next", 3, "N 1,3-1,4"}, {"prev", 2, "M 3,7-3,8"},
  };
  for (const auto& [step, row, selection] : steps) {
    SCOPED_TRACE(step + std::to_string(row));
    if (step == std::string_view("next")) Active().LocateNextResult();
    if (step == std::string_view("prev")) Active().LocatePrevResult();
    EXPECT_EQ(List().ListIndex(), row);
    EXPECT_EQ(Selection(), selection);
  }
}

TEST_F(PageTest, ALocateCommandDoesNotEnterItselfButTheOther) {
  SearchAndSelect(1);
  int nested = 0;
  platform.loop.OnYield = [&] {
    if (nested++ > 0) return;
    Active().LocateNextResult();
    EXPECT_EQ(List().ListIndex(), 2) << "held back";
    Active().LocatePrevResult();
    EXPECT_EQ(List().ListIndex(), 1);
  };
  Active().LocateNextResult();
  EXPECT_EQ(nested, 2);
  platform.loop.OnYield = nullptr;
  Active().LocateNextResult();
  EXPECT_EQ(List().ListIndex(), 2) << "free again";

  Active().mcolResult->Clear();
  List().AddItem(u"stale", 1);
  EXPECT_EQ(Raised([&] { Active().LocateNextResult(); }), 9);
  EXPECT_EQ(Raised([&] { Active().LocateNextResult(); }), 9) << "free again after a failure";
}

TEST_F(PageTest, ClosingThePageDuringAJumpIsSafe) {
  SearchAndSelect(0);
  const auto page = std::weak_ptr(Pages().ActivePage());
  platform.loop.OnYield = [&] { Pages().mcolPages->RemoveAll(); };
  Active().LocateNextResult();
  platform.loop.OnYield = nullptr;
  EXPECT_TRUE(page.expired());
}

TEST_F(PageTest, ClosingThePageDuringItsTaskEndsTheTask) {
  EXPECT_EQ(Search(u"x"), "");
  platform.loop.OnYield = [&] { Pages().mcolPages->RemoveAll(); };
  EXPECT_EQ(Search(u"x").substr(0, 11), "-2147220991") << "as a cancel";
  platform.loop.OnYield = nullptr;
  EXPECT_EQ(Pages().ActivePage(), nullptr);
}

TEST_F(PageTest, KeysAndMouseOfTheList) {
  int popups = 0;
  const auto onPopup = Doc().mnuResultOption.Popped.Subscribe([&] { ++popups; });
  SearchAndSelect(1);
  List().KeyDown.Raise('A', 0);
  EXPECT_EQ(Selection(), "none");
  List().KeyDown.Raise(13, 7);
  EXPECT_EQ(Selection(), "M 3,3-3,4");
  List().KeyDown.Raise(27, 0);
  EXPECT_FALSE(Window().Visible());
  EXPECT_EQ(List().ListCount(), 4);
  Active().UpdateStatus();
  EXPECT_TRUE(Window().Visible());

  List().MouseDown.Raise(1, 0, 0, 0);
  List().MouseDown.Raise(4, 0, 0, 0);
  EXPECT_EQ(popups, 0);
  List().MouseDown.Raise(2, 0, 0, 0);
  Active().mobjLabel->MouseDown.Raise(2, 0, 0, 0);
  EXPECT_EQ(popups, 2);

  List().SetListIndex(-1);
  List().DblClick.Raise();
  EXPECT_EQ(Selection(), "M 3,3-3,4");
}

TEST_F(PageTest, AFailureInAnEventIsShownAndTheSourceGoesOn) {
  SearchAndSelect(3);
  Active().mcolResult->Clear();
  List().AddItem(u"stale", 1);
  List().SetListIndex(0);
  platform.prompts.Answers = {1, 1};
  List().DblClick.Raise();
  List().KeyDown.Raise(13, 0);
  EXPECT_EQ(Boxes(), "Error:9 Error:9");

  platform.prompts.Answers = {1};
  const auto toolWindow = std::exchange(Globals::gobjToolWindow, nullptr);
  Active().mobjFilter->OnClear.Raise();
  EXPECT_EQ(Boxes(), "Error:91");
  Globals::gobjToolWindow = toolWindow;
}

TEST_F(PageTest, HoveringPreviewsAMatchOnce) {
  EXPECT_EQ(Search(u"x"), "");
  List().SetHwnd(77);
  const auto hover = [this](std::int32_t row) {
    rowUnderMouse = row;
    List().MouseMove.Raise(0, 0, 3.0F, 2.0F);
    return Log();
  };
  EXPECT_EQ(hover(1), "") << "the preview is off";
  Doc().mnuCodePreview.Press();
  EXPECT_EQ(Log(), "mode:1");
  EXPECT_EQ(hover(1), "row-at:77:131075 update:2 pos");
  EXPECT_EQ(hover(1), "row-at:77:131075");
  EXPECT_EQ(hover(3), "row-at:77:131075 update:4 pos");
  EXPECT_EQ(hover(0x10003), "row-at:77:131075") << "outside of all rows";
  EXPECT_EQ(hover(-1), "row-at:77:131075");
  EXPECT_EQ(hover(4), "row-at:77:131075");
  EXPECT_EQ(List().ListIndex(), -1);

  EXPECT_EQ(Search(u"Dim"), "");
  EXPECT_EQ(hover(0), "row-at:77:131075 update:1 pos");
  EXPECT_EQ(hover(0), "row-at:77:131075");
  forms::TheForms().Instance(u"frmCodePreview")->Hide();
  EXPECT_EQ(hover(0), "row-at:77:131075 update:1 pos") << "the only row, and the preview was hidden";

  failPreview = true;
  platform.prompts.Answers = {1};
  forms::TheForms().Instance(u"frmCodePreview")->Hide();
  EXPECT_EQ(hover(0), "row-at:77:131075 update:1");
  EXPECT_EQ(Boxes().substr(0, 7), "Error:5");
  EXPECT_EQ(hover(0), "row-at:77:131075") << "a failure is told once a row";
  EXPECT_EQ(Boxes(), "");
  failPreview = false;

  List().Clear();
  List().AddItem(u"stale", 2);
  EXPECT_EQ(hover(0), "row-at:77:131075") << "no match of that number";
}

TEST_F(PageTest, ResetShowsNothingYetADocumentRemains) {
  EXPECT_EQ(Search(u"x"), "");
  Active().Reset();
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(Status(), "");
  EXPECT_EQ(Active().mobjTab->Caption(), u"Search1");
  EXPECT_FALSE(Active().CanRefresh());
  Window().SetVisible(false);
  Setting().SetXSL(Stylesheet(u"<xsl:value-of select='@ID'/>"));
  EXPECT_EQ(Rows(), "1: 1\n2: 2\n3: 3\n4: 4");
  EXPECT_EQ(Status(), "");
  EXPECT_FALSE(Window().Visible());
}

TEST_F(PageTest, TheLayoutFollowsThePanel) {
  Pages().AddNewPage();
  const auto place = [](const forms::Control& control) {
    return std::to_string(control.Left()) + "," + std::to_string(control.Top()) + " " +
           std::to_string(control.Width()) + "x" + std::to_string(control.Height());
  };
  Active().mobjPanel->Move(0, 400, 6000, 3000);
  EXPECT_EQ(place(*Active().mobjLabel), "100,50 5045x285");
  EXPECT_EQ(place(List()), "0,285 6000x2700");
  Active().mobjPanel->Move(0, 400, 900, 200);
  EXPECT_EQ(place(*Active().mobjLabel), "100,50 0x285");
  EXPECT_EQ(place(List()), "0,285 900x0");
}

}  // namespace quorvane::test
