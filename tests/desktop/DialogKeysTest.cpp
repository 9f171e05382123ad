#include <QTabBar>
#include <QTabWidget>
#include <QTreeWidget>

#include "FormWindowsFixture.h"
#include "addin/dialogs/frmOption.h"
#include "desktop/dialogs/KeyEditorView.h"
#include "desktop/results/TabBarView.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"

namespace quorvane::desktop {
namespace {

class DialogKeysTest : public FormWindowsTest {};

/// A key that neither the control nor its frame uses is handed on from one to the other.
TEST_F(DialogKeysTest, TheFormSeesAKeyOnce) {
  StartWithGroup();
  ShowDialog();
  int expected = 0;
  for (const std::shared_ptr<forms::Control>& control :
       {std::shared_ptr<forms::Control>(Dialog().cmbSearch),
        std::shared_ptr<forms::Control>(Dialog().optModeButtons[0]),
        std::shared_ptr<forms::Control>(Dialog().chkMatchCase), std::shared_ptr<forms::Control>(Dialog().cmbReplace)}) {
    QWidget& widget = SearchWindowsTest::WidgetOf(*control);
    widget.setFocus(Qt::MouseFocusReason);
    QTest::keyClick(&widget, Qt::Key_F1);
    EXPECT_EQ(system.addresses.size(), ++expected);
  }
}

TEST_F(DialogKeysTest, EnterPressesNoButtonThatTheFocusHasLeft) {
  StartWithGroup();
  ShowDialog();
  Walk(u"frmOption", From::SearchDialog, [&] {
    auto& options = The<frmOption>();
    QTabBar& bar = *WidgetOf<QTabWidget>(options, *options.SSTab设定).tabBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(OptionControls::kHotkeyTab).center());
    QWidget& commands = Below<KeyEditorView>(WindowOf(options)).Commands();
    for (const auto& button : {options.cmd取消, options.cmd确定}) {
      for (QWidget* place : {&commands, static_cast<QWidget*>(&bar)}) {
        WidgetOf<QWidget>(options, *button).setFocus(Qt::TabFocusReason);
        EXPECT_EQ(options.ActiveControl(), button);
        place->setFocus(Qt::BacktabFocusReason);
        QTest::keyClick(place, Qt::Key_Return);
        ASSERT_TRUE(options.Loaded());
      }
    }
    Click(options, *options.cmd取消);
  });
}

TEST_F(DialogKeysTest, AKeyRepeatsNoSearchThatIsRunning) {
  StartWithGroup();
  Globals::gobjSetting->menumAutoHideSearchDlg = 2;
  Search(QStringLiteral("nextorderno"));
  const std::int32_t matches = CurrentPage()->mcolResult->Count();
  Globals::gobjHotkeyProxy->Manager->Items()[5]->Key = {'R', chordtrap::kCtrl | chordtrap::kShift};
  const auto repeat = [&] { QTest::keyClick(&Window(), Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier); };
  int asked = 0;
  const Subscription atMatch = CurrentPage()->mobjTask->Query.Subscribe([&](bool&) {
    if (++asked == 1) repeat();
  });
  repeat();
  EXPECT_EQ(asked, matches);
  EXPECT_EQ(CurrentPage()->mcolResult->Count(), matches);
}

/// The bar follows its control a moment later.
TEST(TabBarKeysTest, KeysSelectNothingThatTheControlDoesNotOffer) {
  TheApplication();
  forms::TabControl control;
  const auto first = control.Add(u"a", u"", u"a", -1);
  control.Add(u"b", u"", u"b", -1);
  const auto third = control.Add(u"c", u"", u"c", -1);
  TabBarView bar(control, nullptr);
  bar.show();
  control.Remove(u"b");
  EXPECT_NO_THROW(QTest::keyClick(&bar, Qt::Key_Right));
  QCoreApplication::processEvents();
  EXPECT_EQ(control.SelectedTab(), first);
  EXPECT_EQ(bar.currentIndex(), 0);
  control.SetEnabled(false);
  QTest::keyClick(&bar, Qt::Key_Right);
  EXPECT_EQ(control.SelectedTab(), first);
  control.SetEnabled(true);
  QCoreApplication::processEvents();
  QTest::keyClick(&bar, Qt::Key_Right);
  EXPECT_EQ(control.SelectedTab(), third);
}

}  // namespace
}  // namespace quorvane::desktop
