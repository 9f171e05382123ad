#include <gtest/gtest.h>

#include "DialogWorld.h"
#include "platform/forms/Forms.h"

namespace quorvane {
namespace {

using test::Raised;

class SearchDialogFormTest : public test::DialogFixture {
 protected:
  static std::u16string FocusOf(const frmSearchDialog& d) {
    return d.ActiveControl() ? d.ActiveControl()->Name() : std::u16string();
  }
};

TEST_F(SearchDialogFormTest, LoadsInTheMiddleOnTopInsideTheHostWithTheFocusOnTheText) {
  frmSearchDialog& d = Dialog();
  d.ShowEx();
  EXPECT_TRUE(d.Visible());
  EXPECT_FALSE(d.ShownModal());
  EXPECT_EQ(d.Left(), 200);
  EXPECT_EQ(d.Top(), 250);
  EXPECT_EQ(windows.Calls, (std::vector<std::string>{"SetWindowPos 77 -1 0 0 0 0 19", "SetParent 77 500"}));
  EXPECT_EQ(FocusOf(d), u"cmbSearch");
}

TEST_F(SearchDialogFormTest, ThePlaceSurvivesHidingAndIsLostWithAnUnload) {
  Dialog().ShowEx();
  Dialog().Move(1, 2);
  EXPECT_FALSE(Dialog().CloseByUser());
  EXPECT_FALSE(Dialog().Visible());
  EXPECT_TRUE(Dialog().Loaded());
  Setting().mstrSearchStr = u"set while hidden";
  Dialog().ShowEx();
  EXPECT_EQ(Dialog().Left(), 1);
  EXPECT_EQ(Dialog().cmbSearch->Text(), u"") << "a hidden dialog is not loaded anew";
  for (const forms::UnloadMode mode : {forms::UnloadMode::FormCode, forms::UnloadMode::AppWindows}) {
    EXPECT_TRUE(Dialog().Unload(mode));
    Dialog().ShowEx();
    EXPECT_EQ(Dialog().Left(), 200);
  }
  EXPECT_EQ(Dialog().cmbSearch->Text(), u"set while hidden");
}

TEST_F(SearchDialogFormTest, AnUnloadedDialogHearsNoPages) {
  Dialog().ShowEx();
  const auto gone = std::dynamic_pointer_cast<frmSearchDialog>(forms::TheForms().Instance(u"frmSearchDialog"));
  gone->Unload();
  Globals::gobjPageManager->AddNewPage();
  platform.prompts.Answers = {1};
  Type(*gone->cmbSearch, u"x");
  gone->cmdSearch->Press();
  EXPECT_EQ(platform.prompts.Shown.size(), 1u) << "no page manager";
}

TEST_F(SearchDialogFormTest, ShowExDropsFailingSteps) {
  Dialog().ShowEx();
  Dialog().Hide();
  const auto host_ = std::exchange(Globals::gobjVBE, nullptr);
  Type(*Dialog().cmbSearch, u"x");
  Dialog().lblCurModule->SetCaption(u"old");
  Dialog().ShowEx();
  EXPECT_EQ(Commands(), "search edit []");
  Dialog().Unload();
  platform.prompts.Answers = {1};  // the failure of Form_Load is shown
  Dialog().ShowEx();
  EXPECT_TRUE(Dialog().Visible());
  Globals::gobjVBE = host_;
}

TEST_F(SearchDialogFormTest, KeysOfTheForm) {
  frmSearchDialog& d = Dialog();
  d.ShowEx();
  EXPECT_FALSE(d.PressKey(112, 1));
  EXPECT_EQ(platform.shell.Opened.size(), 1u);
  EXPECT_FALSE(d.PressKey(13, 0)) << "the default button is disabled without a text";
  EXPECT_TRUE(d.PressKey(27, 2));
  EXPECT_FALSE(d.Visible());
}

TEST_F(SearchDialogFormTest, EnterPressesTheButtonThatHasTheFocus) {
  frmSearchDialog& d = Dialog();
  d.ShowEx();
  Type(*d.cmbSearch, u"x");
  d.optModeButtons[gsRegular]->Press();
  d.SetFocus(d.cmdReplace);
  platform.prompts.Answers = {7};
  EXPECT_TRUE(d.PressKey(13, 0));
  EXPECT_EQ(platform.prompts.Shown.size(), 1u) << "the question of replace all";
  d.optModeButtons[gsCommon]->Press();
  EXPECT_TRUE(d.PressKey(13, 0));
  EXPECT_EQ(Globals::gobjPageManager->mcolPages->Count(), 1) << "a disabled one leaves Enter to the default button";
  EXPECT_EQ(Raised([&] { d.SetFocus(d.cmdCancel); }), 5) << "invisible";
}

TEST_F(SearchDialogFormTest, AccessKeysReachEveryControl) {
  frmSearchDialog& d = Dialog();
  d.ShowEx();
  Type(*d.cmbSearch, u"x");
  for (const test::Row& row : test::Rows("dialogs/SearchDialog.rows", "AccessKeys")) {
    EXPECT_TRUE(d.PressAccessKey(row.Text(0)[0])) << row.Where();
    EXPECT_EQ(FocusOf(d), row.Text(1)) << row.Where();
    EXPECT_EQ(Condition(), row.Bytes(2)) << row.Where();
  }
  EXPECT_FALSE(d.PressAccessKey(u'c')) << "Cancel is not there";
  EXPECT_FALSE(d.PressAccessKey(u'a')) << "Replace All is disabled";
  EXPECT_FALSE(d.PressAccessKey(u'z'));
  EXPECT_TRUE(d.PressAccessKey(u's'));
  EXPECT_EQ(Globals::gobjPageManager->mcolPages->Count(), 1);
}

TEST_F(SearchDialogFormTest, KeysReachNothingInAClosedFrame) {
  frmSearchDialog& d = Dialog();
  d.ShowEx();
  for (const auto& frame : {d.frameArea, d.frameMode, d.frameOption}) {
    ASSERT_FALSE(frame->Children().empty());
    for (const auto& child : frame->Children()) {
      EXPECT_TRUE(child->IsOpen());
      EXPECT_EQ(child->Container(), frame);
    }
    frame->SetVisible(false);
    for (const auto& child : frame->Children()) EXPECT_FALSE(child->IsOpen());
  }
  EXPECT_FALSE(d.PressAccessKey(u'e')) << "Match case";
}

TEST_F(SearchDialogFormTest, TheShortcutMenuOpensOnTheRightButton) {
  frmSearchDialog& d = Dialog();
  d.ShowEx();
  std::string checks;
  const auto onPopped = d.mnu快捷菜单->Popped.Subscribe([&] {
    checks += d.mnuToNewTab.Checked() ? "new " : "";
    checks += d.mnuToCurTab.Checked() ? "current " : "";
  });
  d.PressMouse(1, 0, 5, 5);
  d.PressMouse(2, 0, 5, 5);
  d.mnuToNewTab.Press();
  EXPECT_EQ(Setting().menumSearchTo, 0);
  EXPECT_TRUE(d.mnuToNewTab.Checked());
  EXPECT_FALSE(d.mnuToCurTab.Checked());
  d.PressMouse(2, 0, 5, 5);
  d.mnuToCurTab.Press();
  EXPECT_EQ(Setting().menumSearchTo, 1);
  EXPECT_FALSE(d.mnuToNewTab.Checked());
  Setting().menumSearchTo = 0;  // the result window's menu
  d.PressMouse(2, 0, 5, 5);
  EXPECT_EQ(checks, "current new new ");
  d.mnu显示结果列表.Press();
  EXPECT_TRUE(toolWindow->Visible());
}

}  // namespace
}  // namespace quorvane
