#include <filesystem>

#include "ResultWindowFixture.h"
#include "platform/forms/Forms.h"
#include "platform/forms/ImageList.h"

namespace quorvane::test {

namespace {

class ResultDialogTest : public testing::Test, public ResultWorld {
 protected:
  ResultDialogTest() : ResultWorld(Group{}.Project(u"P").Module(u"M", CrLf(u"x = x\n'x"))) {}

  /// The items with "*" checked, "!" not enabled, "-" for lines.
  static std::string Menu(const forms::Menu& menu) {
    std::vector<std::string> lines;
    for (const auto& item : menu.Items()) {
      lines.push_back(item->IsSeparator() ? "-"
                                          : (item->Checked() ? "*" : "") + std::string(item->Enabled() ? "" : "!") +
                                                ToUtf8(item->Caption()));
    }
    return Join(lines);
  }
  std::string Tabs() {
    std::string text;
    for (const auto& tab : Doc().vbalDTabControl1->Tabs()) {
      text += (tab->Selected() ? "[" : "") + ToUtf8(tab->Key()) + (tab->Selected() ? "] " : " ");
    }
    return text;
  }
  void OpenTabMenu() { Doc().vbalDTabControl1->PressBar(2, 0, 0, 0); }
};

std::string Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TEST_F(ResultDialogTest, AtTheStartTheFixedTabStandsAlone) {
  EXPECT_EQ(Tabs(), "[AddNewTab] ");
  const auto tab = Doc().vbalDTabControl1->SelectedTab();
  EXPECT_EQ(tab->Caption(), u" ");
  EXPECT_EQ(tab->IconIndex(), 0);
  EXPECT_FALSE(tab->CanClose());
  EXPECT_EQ(Doc().vbalDTabControl1->Images()->Images.size(), 1U);
  Doc().Resize(9000, 4000);
  EXPECT_EQ(Doc().vbalDTabControl1->Width(), 9000);
  EXPECT_EQ(Doc().vbalDTabControl1->Height(), 4000);
}

TEST_F(ResultDialogTest, TheMenusAreFilledByTheShow) {
  Doc().Show();
  EXPECT_EQ(Menu(Doc().mnuResultOption),
            "Show search &dialog\n-\n!R&epeat search\n!Cancel search\n-\nCode &preview\n!&Relpace preview\n-\n"
            "&Options\n-\n&Clear result list\nResult &save as ...\n-\n&About ...");
  EXPECT_EQ(Menu(Doc().mnuTabOption),
            "To n&ew tab\nTo c&urrent tab\n-\n&Close tab\nClose &other tabs\nClose &All tabs");
}

TEST_F(ResultDialogTest, RepeatAndCancelAreEnabledByTheStateOfThePage) {
  const auto state = [this] {
    Doc().PopupMenu();
    return std::string(Doc().mnuRefreshResult.Enabled() ? "repeat" : "-") + " " +
           (Doc().mnuCancelSearch.Enabled() ? "cancel" : "-");
  };
  Pages().AddNewPage();
  EXPECT_EQ(state(), "- -") << "a fresh page";
  std::string running;
  platform.loop.OnYield = [&] { running = state(); };
  EXPECT_EQ(Search(u"x"), "");
  EXPECT_EQ(running, "- cancel");
  platform.loop.OnYield = nullptr;
  EXPECT_EQ(state(), "repeat -");
  Doc().mnuResetTab.Press();
  EXPECT_EQ(state(), "- -");
  EXPECT_EQ(Rows(), "");
}

TEST_F(ResultDialogTest, TheMenuCannotOpenWithoutAPageInSilence) {
  platform.prompts.Answers = {1};
  Doc().PopupMenu();
  EXPECT_EQ(Boxes(), "Error:91");
}

TEST_F(ResultDialogTest, RepeatRunsFromTheTimerAndCancelEndsItWithoutAMessage) {
  EXPECT_EQ(Search(u"x"), "");
  Doc().PopupMenu();
  Doc().mnuRefreshResult.Press();
  EXPECT_TRUE(Doc().TimerRunTask.Enabled());
  Active().ClearList();
  platform.loop.Advance(9);
  EXPECT_EQ(Rows(), "");
  platform.loop.Advance(1);
  EXPECT_FALSE(Doc().TimerRunTask.Enabled());
  EXPECT_EQ(List().ListCount(), 3);

  platform.loop.OnYield = [&] {
    EXPECT_FALSE(Pages().BarEnabled());
    EXPECT_FALSE(Doc().vbalDTabControl1->Item(u"AddNewTab")->CanClose());
    Doc().PopupMenu();
    if (List().ListCount() == 2) Doc().mnuCancelSearch.Press();
  };
  Doc().mnuRefreshResult.Press();
  platform.loop.Advance(10);
  platform.loop.OnYield = nullptr;
  EXPECT_EQ(List().ListCount(), 2);
  EXPECT_TRUE(Pages().BarEnabled());
  EXPECT_FALSE(Doc().vbalDTabControl1->Item(u"AddNewTab")->CanClose());
}

TEST_F(ResultDialogTest, AFailingRepeatIsShownAndTheBarComesBack) {
  EXPECT_EQ(Search(u"x"), "");
  const auto utilities = std::exchange(Globals::gobjUtilities, nullptr);
  platform.prompts.Answers = {1};
  Doc().mnuRefreshResult.SetEnabled(true);
  Doc().mnuRefreshResult.Press();
  platform.loop.Advance(10);
  EXPECT_EQ(Boxes(), "Error:91");
  EXPECT_TRUE(Pages().BarEnabled());
  Globals::gobjUtilities = utilities;
}

TEST_F(ResultDialogTest, TheEndOfATaskRenewsTheStatusUnlessItReplaced) {
  EXPECT_EQ(Search(u"x"), "");
  const std::u16string status = Active().mobjLabel->Caption();
  for (const std::int32_t type : {kTaskReplaceAll, kTaskSearch, kTaskRepeatSearch}) {
    Active().mobjLabel->SetCaption(u"old");
    Pages().SetBarEnabled(false);
    Active().mobjTask->TaskDone.Raise(type);
    EXPECT_EQ(Active().mobjLabel->Caption(), type == kTaskReplaceAll ? u"old" : status);
    EXPECT_TRUE(Pages().BarEnabled());
  }
  const auto first = std::dynamic_pointer_cast<Page>(Pages().ActivePage());
  Pages().AddNewPage();
  first->mobjTask->TaskBegin.Raise(kTaskSearch);
  EXPECT_TRUE(Pages().BarEnabled()) << "the tasks of the current page alone count";
}

TEST_F(ResultDialogTest, ThePreviewModeFollowsTheChecks) {
  const struct {
    forms::Menu& press;
    const char* log;
    bool code, replace, replaceEnabled;
  } steps[] = {
      {Doc().mnuReplacePreview, "", false, false, false},  // not enabled yet
      {Doc().mnuCodePreview, "mode:1", true, false, true},    {Doc().mnuReplacePreview, "mode:2", true, true, true},
      {Doc().mnuReplacePreview, "mode:1", true, false, true}, {Doc().mnuReplacePreview, "mode:2", true, true, true},
      {Doc().mnuCodePreview, "mode:0", false, false, false},
  };
  for (std::size_t i = 0; i < std::size(steps); ++i) {
    SCOPED_TRACE(i);
    steps[i].press.Press();
    EXPECT_EQ(Log(), steps[i].log);
    EXPECT_EQ(Doc().mnuCodePreview.Checked(), steps[i].code);
    EXPECT_EQ(Doc().ShowPreview(), steps[i].code);
    EXPECT_EQ(Doc().mnuReplacePreview.Checked(), steps[i].replace);
    EXPECT_EQ(Doc().mnuReplacePreview.Enabled(), steps[i].replaceEnabled);
  }

  // Without a page there is nothing to preview; it comes back with the next one.
  Pages().AddNewPage();
  Doc().mnuCodePreview.Press();
  EXPECT_EQ(Log(), "mode:1");
  Doc().mnuCloseAllTabs.Press();
  EXPECT_EQ(Log(), "mode:0");
  Pages().AddNewPage();
  EXPECT_EQ(Log(), "mode:1");
  Pages().AddNewPage();
  EXPECT_EQ(Log(), "");
}

TEST_F(ResultDialogTest, TheMenuShowsTheSearchDialogAndTellsOfFailures) {
  Doc().mnuShowSearchDialog.Press();
  EXPECT_EQ(Log(), "ShowEx");
  forms::TheForms().Forget();
  platform.prompts.Answers = {1, 1, 1};
  Doc().mnuShowSearchDialog.Press();
  Doc().mnuSetOption.Press();
  Doc().mnuAbout.Press();
  EXPECT_EQ(Boxes(), "Error:429 Error:429 Error:429");
}

TEST_F(ResultDialogTest, SavingWritesXmlAloneAndOffersTheNameAgain) {
  TempFolder folder;
  const auto at = [&](const char* name) { return FromUtf8((folder.Path() / name).string()); };
  EXPECT_EQ(Search(u"x"), "");
  const struct {
    std::optional<std::u16string> chosen;
    std::u16string offered;
    bool written;
  } rows[] = {
      {at("a.xml"), u"", true},          {std::nullopt, at("a.xml"), false}, {at("b.XmL"), at("a.xml"), true},
      {at("c.txt"), at("b.XmL"), false}, {at("d"), at("c.txt"), false},      {at("e.xml.bak"), at("d"), false},
  };
  for (const auto& [chosen, offered, written] : rows) {
    platform.prompts.FileNames = {chosen};
    Doc().mnuSaveAs.Press();
    const auto& dialog = platform.prompts.FileDialogs.back();
    EXPECT_EQ(dialog.FileName, offered);
    EXPECT_EQ(dialog.Filter, u"Extensible markup language (*.XML)|*.XML");
    EXPECT_EQ(dialog.Title, u"Save as ...");
    EXPECT_EQ(dialog.DefaultExt, u".XML");
    if (!chosen) {
      EXPECT_FALSE(std::filesystem::exists(ToUtf8(offered))) << "a cancel writes nothing";
      continue;
    }
    const std::string saved = Bytes(ToUtf8(*chosen));
    EXPECT_EQ(!saved.empty(), written) << ToUtf8(*chosen);
    EXPECT_EQ(saved.find("<MatchItem ID=\"3\"") != std::string::npos, written);
    std::filesystem::remove(ToUtf8(*chosen));
  }
  EXPECT_EQ(Boxes(), "");

  platform.prompts.FileNames = {at("no/such/folder.xml")};
  platform.prompts.Answers = {1};
  Doc().mnuSaveAs.Press();
  EXPECT_NE(Boxes(), "");
}

TEST_F(ResultDialogTest, TheTabMenuOpensWithTheStateOfTheMoment) {
  Doc().Show();
  int popups = 0;
  const auto onPopup = Doc().mnuTabOption.Popped.Subscribe([&] { ++popups; });
  OpenTabMenu();
  EXPECT_EQ(popups, 1);
  EXPECT_EQ(Menu(Doc().mnuTabOption),
            "To n&ew tab\n*To c&urrent tab\n-\n!&Close tab\nClose &other tabs\nClose &All tabs")
      << "the fixed tab alone";
  Pages().AddNewPage();
  Doc().mnuToNewTab.Press();
  EXPECT_EQ(Setting().menumSearchTo, 0);
  Doc().vbalDTabControl1->PressTab(Doc().vbalDTabControl1->Item(u"AddNewTab"), 2, 0, 0, 0);
  EXPECT_EQ(popups, 2);
  EXPECT_EQ(Menu(Doc().mnuTabOption),
            "*To n&ew tab\nTo c&urrent tab\n-\n&Close tab\nClose &other tabs\nClose &All tabs")
      << "the selected tab counts";
  Doc().mnuToCurTab.Press();
  EXPECT_EQ(Setting().menumSearchTo, 1);
  EXPECT_FALSE(Doc().mnuToNewTab.Checked());
  EXPECT_TRUE(Doc().mnuToCurTab.Checked());
  for (const std::int16_t button : {std::int16_t{1}, std::int16_t{4}})
    Doc().vbalDTabControl1->PressBar(button, 0, 0, 0);
  EXPECT_EQ(popups, 2);
}

TEST_F(ResultDialogTest, TheCloseCommandsActOnTheSelectedTab) {
  for (int i = 0; i < 4; ++i) Pages().AddNewPage();
  Window().SetVisible(true);
  Doc().vbalDTabControl1->Item(u"Search2")->Select();
  Doc().vbalDTabControl1->PressTab(Doc().vbalDTabControl1->Item(u"Search4"), 2, 0, 0, 0);
  Doc().mnuCloseTab.Press();
  EXPECT_EQ(Tabs(), "Search1 [Search3] Search4 AddNewTab ");
  Doc().mnuCloseOtherTabs.Press();
  EXPECT_EQ(Tabs(), "[Search3] AddNewTab ");
  EXPECT_TRUE(Window().Visible());
  Doc().mnuCloseAllTabs.Press();
  EXPECT_EQ(Tabs(), "[AddNewTab] ");
  EXPECT_FALSE(Window().Visible());

  Window().SetVisible(true);
  Doc().mnuCloseOtherTabs.Press();
  EXPECT_TRUE(Window().Visible());
  Doc().mnuCloseAllTabs.Press();
  EXPECT_FALSE(Window().Visible());
  EXPECT_EQ(Doc().Controls().Count(), 0);
}

TEST_F(ResultDialogTest, KeysReachThePageAndEscHidesTheWindowWithoutOne) {
  Window().SetVisible(true);
  Doc().KeyDown(13, 0);
  EXPECT_TRUE(Window().Visible());
  Doc().KeyDown(27, 0);
  EXPECT_FALSE(Window().Visible());
  EXPECT_EQ(Search(u"x"), "");
  EXPECT_TRUE(Window().Visible()) << "the next match opens it";
  List().SetListIndex(2);
  Doc().KeyDown(13, 0);
  EXPECT_EQ(Selection(), "M 2,2-2,3");
  Doc().KeyDown(27, 0);
  EXPECT_FALSE(Window().Visible());
}

}  // namespace quorvane::test
