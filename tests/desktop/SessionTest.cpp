#include <gtest/gtest.h>

#include <QTextBlock>

#include "SearchWindowsFixture.h"
#include "desktop/dialogs/FormWindow.h"
#include "desktop/dialogs/FormWindows.h"
#include "workbench/model/Component.h"

namespace quorvane::desktop {
namespace {

class SessionTest : public SearchWindowsTest {
 protected:
  /// Module and line of each code window; * marks the one in front.
  std::string Windows() {
    QApplication::processEvents();
    std::string all;
    for (CodeWindow* window : Window().Code().CodeWindows()) {
      all += ToUtf8(window->TheComponent()->Name()) + " " +
             std::to_string(window->Editor().textCursor().blockNumber() + 1) +
             (window == Window().Code().Current() ? "* " : " ");
    }
    return all;
  }
  void RunAgain() {
    QApplication::processEvents();
    Window().close();
    Stop();
    Start();
    desktop->OpenFirst({});
  }
};

TEST_F(SessionTest, TheNextRunComesBackToTheSameWindowsAndLines) {
  StartWithGroup();
  EditorOf(u"modMoney").GoToLine(5);
  EditorOf(u"COrder").GoToLine(2);
  EditorOf(u"modMain").GoToLine(30);
  EditorOf(u"COrder").GoToLine(7);
  const std::string shown = Windows();
  EXPECT_EQ(shown, "modMoney 5 COrder 7* modMain 30 ");
  RunAgain();
  EXPECT_EQ(Windows(), shown);
  Window().Code().CodeWindows()[0]->close();
  QApplication::processEvents();
  RunAgain();
  EXPECT_EQ(Windows(), "COrder 7* modMain 30 ");

  // Another group has its own windows, and the first one's come back with it.
  Open("samples/Shop/Ledger/Ledger.vbp");
  EXPECT_EQ(Windows(), "");
  EditorOf(u"modLedger").GoToLine(3);
  EXPECT_EQ(Windows(), "modLedger 3* ");
  Open("samples/Shop/Shop.vbg");
  EXPECT_EQ(Windows(), "COrder 7* modMain 30 ");
  Open("samples/Shop/Ledger/Ledger.vbp");
  EXPECT_EQ(Windows(), "modLedger 3* ");

  // What the user closed stays closed; a start that leaves the rest to itself begins with nothing then.
  Window().Menu().Find(Text::FileClose)->trigger();
  RunAgain();
  EXPECT_TRUE(desktop->Host().Projects().empty());
}

TEST_F(SessionTest, AGroupThatIsGoneIsNotAskedFor) {
  Start();
  Open("samples/Shop/Ledger/Ledger.vbp");
  Window().close();
  Stop();
  std::filesystem::remove_all(folder / "samples/Shop/Ledger");
  Start();
  desktop->OpenFirst({});
  EXPECT_TRUE(desktop->Host().Projects().empty());
}

TEST_F(SessionTest, TheSearchDialogComesUpWhereItWasLeft) {
  StartWithGroup();
  ShowDialog();
  const auto window = [this]() -> QWidget& { return *desktop->Forms().WindowOf(Dialog()); };
  const QPoint middle = window().pos();
  const QPoint place = middle + QPoint(-90, 40);
  window().move(place);
  QTest::keyClick(&WidgetOf(*Dialog().cmbSearch), Qt::Key_Escape);
  Stop();
  StartWithGroup();
  ShowDialog();
  EXPECT_EQ(window().pos(), place);
  window().move(QPoint(-5000, -5000));
  QTest::keyClick(&WidgetOf(*Dialog().cmbSearch), Qt::Key_Escape);
  Stop();
  StartWithGroup();
  ShowDialog();
  EXPECT_EQ(window().pos(), middle) << "a place on no screen counts for nothing";
}

}  // namespace
}  // namespace quorvane::desktop
