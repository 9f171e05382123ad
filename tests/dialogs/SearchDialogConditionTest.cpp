#include <gtest/gtest.h>

#include "DialogWorld.h"
#include "addin/core/LanguageManager.h"

namespace quorvane {
namespace {

using test::Dragged;
using test::Group;

class SearchDialogTest : public test::DialogFixture {
 protected:
  frmSearchDialog& Shown() {
    Dialog().ShowEx();
    return Dialog();
  }
  static std::string ListOf(const forms::ComboBox& combo) {
    std::string list;
    for (std::int32_t i = 0; i < combo.ListCount(); ++i) list += ToUtf8(combo.List(i)) + ",";
    return list;
  }
  static std::string HistoryOf(const StringCollection& history) { return ToUtf8(history.Join(u",")) + ","; }
  /// What the controls show, in the words of Condition().
  static std::string Screen(const frmSearchDialog& d) {
    const auto set = [](const forms::OptionGroup& group) {
      for (const auto& [index, value] : group.Buttons()) {
        if (value) return index;
      }
      return std::int16_t{-1};
    };
    std::string text = ToUtf8(d.cmbSearch->Text()) + "|" + ToUtf8(d.cmbReplace->Text());
    for (const std::int16_t value : {set(d.optArea), set(d.optMode), d.chkMatchCase->Value(), d.chkWholeWord->Value(),
                                     d.chkIgnoreComment->Value()}) {
      text += "|" + std::to_string(value);
    }
    return text;
  }
};

TEST_F(SearchDialogTest, ControlsStandInTabOrderUnderTheirNames) {
  std::string names;
  for (const auto& control : Dialog().Controls().All()) names += ToUtf8(control->Name()) + " ";
  EXPECT_EQ(names,
            "lblMatch cmbSearch lblReplace cmbReplace frameArea optArea(3) optArea(0) optArea(1) optArea(2) optArea(4) "
            "frameMode optMode(0) optMode(1) optMode(2) frameOption chkMatchCase chkWholeWord chkIgnoreComment "
            "lblCurModule cmdSearch cmdReplace cmdCancel mnu快捷菜单 mnu显示结果列表 mnu_s5 mnuToNewTab mnuToCurTab "
            "mnu_s10 mnu选项 mnu_s20 mnu关于 ");
  for (const char16_t* line : {u"mnu_s5", u"mnu_s10", u"mnu_s20"}) {
    EXPECT_TRUE(dynamic_cast<const forms::Menu&>(*Dialog().Controls().Item(line)).IsSeparator());
  }
}

TEST_F(SearchDialogTest, CaptionsFollowTheLanguageAndAccessKeysDiffer) {
  Shown();
  EXPECT_EQ(test::Captions(Dialog()),
            "Quorvane|&Find|Rep&lace|Area|Procedu&re|&Module|&Project|&Group|Selecti&on|Method|Commo&n|"
            "Pa&ttern|Rege&xp|Option|Match cas&e|&Whole word|&Ignore CommentOnly search in comment when gray||"
            "&Search|Replace &All|&Cancel||Show result &list||To n&ew tab|To c&urrent tab||&Options ...||"
            "&About ...");
  Globals::Language().Language = 0;
  Globals::Language().UpdateAllUI();
  EXPECT_NE(test::Captions(Dialog()).find("灰色表示只搜索注释"), std::string::npos);
  for (const std::int32_t language : {0, 1}) {
    Globals::Language().Language = language;
    Globals::Language().UpdateAllUI();
    std::set<char16_t> keys;
    for (const auto& control : Dialog().Controls().All()) {
      const auto* captioned = dynamic_cast<const forms::CaptionedControl*>(control.get());
      if (captioned == nullptr || forms::AccessKey(captioned->Caption()) == 0) continue;
      EXPECT_TRUE(keys.insert(forms::AccessKey(captioned->Caption())).second) << ToUtf8(captioned->Caption());
    }
    EXPECT_EQ(keys.size(), 16u);
  }
}

TEST_F(SearchDialogTest, EveryControlWritesToTheSettingsAtOnce) {
  frmSearchDialog& d = Shown();
  const struct {
    const char* control;
    std::function<void()> use;
    const char* condition;
  } rows[] = {
      {"start", [] {}, "||1|0|0|0|0|1"},
      {"cmbSearch", [&] { Type(*d.cmbSearch, u"a\tb"); }, "a\tb||1|0|0|0|0|1"},
      {"cmbReplace", [&] { Type(*d.cmbReplace, u"c"); }, "a\tb|c|1|0|0|0|0|1"},
      {"optArea(4)", [&] { d.optAreaButtons[4]->Press(); }, "a\tb|c|4|0|0|0|0|1"},
      {"chkMatchCase", [&] { d.chkMatchCase->Press(); }, "a\tb|c|4|0|1|0|0|1"},
      {"chkWholeWord", [&] { d.chkWholeWord->Press(); }, "a\tb|c|4|0|1|1|0|1"},
      {"optMode(1)", [&] { d.optModeButtons[1]->Press(); }, "a\tb|c|4|1|1|1|0|1"},
      {"optMode(2): the box counts for the new mode", [&] { d.optModeButtons[2]->Press(); }, "a\tb|c|4|2|1|1|1|1"},
      {"chkWholeWord in mode 2", [&] { d.chkWholeWord->Press(); }, "a\tb|c|4|2|1|1|0|1"},
      {"optMode(0)", [&] { d.optModeButtons[0]->Press(); }, "a\tb|c|4|0|1|0|0|1"},
      {"chkIgnoreComment: to gray", [&] { d.chkIgnoreComment->Press(); }, "a\tb|c|4|0|1|0|0|2"},
      {"to clear", [&] { d.chkIgnoreComment->Press(); }, "a\tb|c|4|0|1|0|0|0"},
      {"to ticked", [&] { d.chkIgnoreComment->Press(); }, "a\tb|c|4|0|1|0|0|1"},
      {"line breaks stay on the screen", [&] { d.cmbSearch->SetText(u"\rx\r\ny\n"); }, "xy|c|4|0|1|0|0|1"},
      {"dropped text", [&] { d.cmbSearch->Drop(Dragged(u"dropped")); }, "dropped|c|4|0|1|0|0|1"},
      {"other data", [&] { d.cmbReplace->Drop(Dragged(u"picture", false)); }, "dropped|c|4|0|1|0|0|1"},
      {"dropped replacement", [&] { d.cmbReplace->Drop(Dragged(u"r\r\n")); }, "dropped|r|4|0|1|0|0|1"},
  };
  for (const auto& row : rows) {
    row.use();
    EXPECT_EQ(Condition(), row.condition) << row.control;
  }
}

TEST_F(SearchDialogTest, MemToScreenShowsEverythingAndWritesNothing) {
  GlobalSetting& s = Setting();
  s.mcolSearchHistory.AddSplit(u"abc,ABC,x", u",");
  s.mcolReplaceHistory.AddSplit(u"1,2", u",");
  s.mstrSearchStr = u"find me";
  s.mstrReplaceStr = u"put this";
  s.menumArea = gsCurProcedure;
  s.menumMode = gsRegular;
  s.mblnMatchCase = true;
  s.mblnRegSingleLine = true;
  s.menumIgnoreComment = gsCommentOnly;
  const std::string before = Condition();
  frmSearchDialog& d = Shown();
  EXPECT_EQ(Screen(d), "find me|put this|3|2|1|1|2");
  EXPECT_EQ(Condition(), before);
  EXPECT_EQ(ListOf(*d.cmbSearch), "abc,ABC,x,");
  EXPECT_EQ(ListOf(*d.cmbReplace), "1,2,");
  EXPECT_EQ(d.chkWholeWord->Caption(), u"Single line");
  d.chkIgnoreComment->Press();
  EXPECT_EQ(s.menumIgnoreComment, gsIncludeComment) << "gray, as shown, leads to clear";

  s.menumMode = gsCommon;  // its own flag is clear
  d.MemToScreen();
  EXPECT_EQ(Screen(d), "find me|put this|3|0|1|0|0");
  EXPECT_EQ(d.chkWholeWord->Caption(), u"&Whole word");
}

TEST_F(SearchDialogTest, TheCaptionOfTheModeComesBackBehindAChangeOfLanguage) {
  Setting().menumMode = gsRegular;
  frmSearchDialog& d = Shown();
  Globals::Language().UpdateAllUI();
  EXPECT_EQ(d.chkWholeWord->Caption(), u"&Whole word");
  Type(*d.cmbSearch, u"x");
  EXPECT_EQ(d.chkWholeWord->Caption(), u"Single line");
}

TEST_F(SearchDialogTest, EnablingRules) {
  frmSearchDialog& d = Shown();
  const auto enabled = [&] {
    std::string names;
    for (const auto& control : d.Controls().All()) {
      if (!control->Enabled()) names += ToUtf8(control->Name()) + " ";
    }
    return names;
  };
  for (const auto& area : d.optAreaButtons) {
    area->Press();
    for (const std::int16_t mode : {gsCommon, gsPattern, gsRegular}) {
      d.optModeButtons[static_cast<std::size_t>(mode)]->Press();
      for (const char16_t* text : {u"", u"x", u"\r\n"}) {
        Type(*d.cmbSearch, text);
        const bool empty = text != std::u16string(u"x");
        EXPECT_EQ(enabled(), empty ? "cmdSearch cmdReplace " : mode == gsRegular ? "" : "cmdReplace ");
      }
    }
  }
}

TEST_F(SearchDialogTest, TheSelectionOfTheActivePaneIsTakenOver) {
  OpenGroup(Group{}.Project(u"P").Module(u"M", u"Sub Foo()\r\n  Bar 1\r\nEnd Sub"));
  Setting().menumArea = gsAllProjects;
  frmSearchDialog& d = Shown();
  for (const test::Row& row : test::Rows("dialogs/SearchDialog.rows", "Selections")) {
    SCOPED_TRACE(row.Where());
    d.cmbSearch->SetText(u"before");
    d.optArea.SetValue(gsAllProjects, true);
    Activate(u"M", row.Range(1));
    d.DoubleClick();
    EXPECT_EQ(d.cmbSearch->Text(), row.Text(2));
    EXPECT_EQ(Setting().menumArea, row.Number(3));
    EXPECT_EQ(Setting().mstrSearchStr, frmSearchDialog::FilterSpecialChar(row.Text(2)));
    EXPECT_EQ(d.cmbSearch->SelStart(), 0);
    EXPECT_EQ(d.cmbSearch->SelLength(), static_cast<std::int32_t>(d.cmbSearch->Text().size()));
  }
  d.cmbSearch->SetText(u"");
  d.DoubleClick();
  EXPECT_EQ(Commands(), "edit []") << "many lines and no text: nothing to search for";
}

TEST_F(SearchDialogTest, HistoriesKeepTheNewestFirstAndEachEntryOnce) {
  OpenGroup(Group{}.Project(u"P").Module(u"M", u"abc"));
  Setting().mcolSearchHistory.AddSplit(u"abc,ABC,x", u",");
  frmSearchDialog& d = Shown();
  d.cmbSearch->Pick(2);
  EXPECT_EQ(Setting().mstrSearchStr, u"x");
  d.cmdSearch->Press();
  EXPECT_EQ(HistoryOf(Setting().mcolSearchHistory), "x,abc,ABC,");
  EXPECT_EQ(d.cmbSearch->Text(), u"x");
  Type(*d.cmbSearch, u"ABC");
  d.cmdSearch->Press();
  Type(*d.cmbSearch, u"new");
  d.cmdSearch->Press();
  EXPECT_EQ(HistoryOf(Setting().mcolSearchHistory), "new,ABC,x,abc,");
  EXPECT_EQ(ListOf(*d.cmbSearch), "new,ABC,x,abc,");
  EXPECT_EQ(Setting().mcolReplaceHistory.Count(), 0);
}

TEST_F(SearchDialogTest, AFailureInAnEventIsShownAndTheDialogGoesOn) {
  frmSearchDialog& d = Shown();
  const auto setting = std::exchange(Globals::gobjSetting, nullptr);
  platform.prompts.Answers = {1, 1, 1};
  d.chkIgnoreComment->Press();
  Type(*d.cmbSearch, u"lost");
  d.PressMouse(2, 0, 0, 0);
  ASSERT_EQ(platform.prompts.Shown.size(), 3u);
  Globals::gobjSetting = setting;
  d.chkIgnoreComment->Press();
  EXPECT_EQ(Condition(), "lost||1|0|0|0|0|0") << "ticked at the start, two clicks on";

  int changes = 0;
  auto onChanged = d.chkIgnoreComment->Changed.Subscribe([&] {
    if (++changes == 3) RaiseError(ErrorNumber::Internal);
  });
  platform.prompts.Answers = {1};
  d.chkIgnoreComment->Press();  // one change: what the click makes of the box is what the cycle wants
  d.chkIgnoreComment->Press();  // two changes, of which the second is the cycle's own
  onChanged.Reset();
  d.chkIgnoreComment->Press();
  EXPECT_EQ(Condition(), "lost||1|0|0|0|0|0") << "the count of calls is back at 0";
}

}  // namespace
}  // namespace quorvane
