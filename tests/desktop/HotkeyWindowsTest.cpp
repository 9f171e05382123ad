#include <QApplication>
#include <QStatusBar>
#include <QTabWidget>
#include <QTreeWidget>

#include "FormWindowsFixture.h"
#include "addin/connect/Connect.h"
#include "addin/dialogs/frmOption.h"
#include "desktop/dialogs/KeyEditorView.h"
#include "desktop/shell/ProjectTree.h"
#include "workbench/model/HostCommandBars.h"

namespace quorvane::desktop {
namespace {

class HotkeyWindowsTest : public FormWindowsTest {
 protected:
  KeyEditorView& Keys() { return Below<KeyEditorView>(WindowOf(The<frmOption>())); }
  void OpenKeys(const std::function<void()>& walk) {
    Walk(u"frmOption", From::SearchDialog, [&] {
      auto& tabs = Below<QTabWidget>(WindowOf(The<frmOption>()));
      QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(OptionControls::kHotkeyTab).center());
      ASSERT_TRUE(Keys().isVisible());
      walk();
    });
  }
  void Pick(int row) {
    QTreeWidget& commands = Keys().Commands();
    QTest::mouseClick(commands.viewport(), Qt::LeftButton, {},
                      commands.visualItemRect(commands.topLevelItem(row)).center());
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(&Keys().Box(), key, modifiers); }
  QString KeyOf(int row) { return Keys().Commands().topLevelItem(row)->text(1); }
  void Close(const std::shared_ptr<forms::CommandButton>& button) { FormWindowsTest::Click(The<frmOption>(), *button); }

  /// Whether the search dialog comes by a key pressed in the main window.
  bool Opens(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    Dialog().Hide();
    QApplication::setActiveWindow(&Window());
    QTest::keyClick(&Window(), key, modifiers);
    return Dialog().Visible();
  }
  static void Give(int command, chordtrap::KeyChord key) {
    Globals::gobjHotkeyProxy->Manager->Items()[command]->Key = key;
  }
};

TEST_F(HotkeyWindowsTest, TheEditorGivesTakesAndRevertsKeys) {
  StartWithGroup();
  ShowDialog();
  OpenKeys([&] {
    EXPECT_EQ(KeyOf(0), QStringLiteral("Ctrl+Q"));
    Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(Keys().AddButton().isEnabled()) << "for no command";
    Pick(0);
    Press(Qt::Key_Control, Qt::ControlModifier);
    Press(Qt::Key_Shift, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Keys().Box().text(), QStringLiteral("Ctrl+Shift+F")) << "a modifier alone is no key";
    Keys().AddButton().click();
    EXPECT_EQ(KeyOf(0), QStringLiteral("Ctrl+Shift+F"));
    EXPECT_EQ(Keys().Box().text(), QString());

    Pick(3);
    EXPECT_FALSE(Keys().RemoveButton().isEnabled());
    Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(Keys().Warning().contains(Keys().Commands().topLevelItem(0)->text(0)))
        << Keys().Warning().toStdString();
    EXPECT_FALSE(Keys().AddButton().isEnabled()) << "for a key that is taken";
    Press(Qt::Key_F7, Qt::NoModifier);
    EXPECT_EQ(Keys().Warning(), QString());
    Keys().AddButton().click();
    EXPECT_EQ(KeyOf(3), QStringLiteral("F7"));
    Pick(1);
    Keys().RemoveButton().click();
    EXPECT_EQ(KeyOf(1), QString());
    Close(The<frmOption>().cmd确定);
  });
  const auto check = [this] {
    EXPECT_FALSE(Opens(Qt::Key_Q));
    EXPECT_TRUE(Opens(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier));
  };
  check();
  OpenKeys([&] {
    Pick(0);
    Keys().RemoveButton().click();
    Pick(1);
    Press(Qt::Key_Q, Qt::ControlModifier);
    Keys().AddButton().click();
    EXPECT_EQ(KeyOf(0) + KeyOf(1), QStringLiteral("Ctrl+Q"));
    Close(The<frmOption>().cmd取消);
  });
  check();
  Stop();
  StartWithGroup();
  check();
}

TEST_F(HotkeyWindowsTest, ModalWindowsAndTheMenuEntryHoldKeysBack) {
  StartWithGroup();
  EXPECT_TRUE(Opens(Qt::Key_Q));
  Dialog().Hide();
  Walk(
      u"frmAbout", [] { forms::TheForms().Instance(u"frmAbout")->Show(forms::FormModal::Modal); },
      [&] {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Q, Qt::ControlModifier);
        EXPECT_FALSE(Dialog().Visible());
        forms::TheForms().Instance(u"frmAbout")->Unload();
      });
  QMessageBox box(&Window());
  box.open();
  QTest::keyClick(&box, Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(Dialog().Visible());
  box.close();

  // While it is held back, a key is that of the host's own menu.
  Give(1, {'0', chordtrap::kCtrl});
  const auto size = [this] { return Window().Code().TextSize(); };
  Window().Code().SetTextSize(20);
  EXPECT_TRUE(Opens(Qt::Key_0));
  EXPECT_EQ(size(), 20);
  const auto entry = desktop->Host().TheCommandBars()->Add(u"Add-Ins")->Buttons().at(0);
  entry->SetEnabled(false);
  EXPECT_FALSE(Opens(Qt::Key_0));
  EXPECT_EQ(size(), CodeArea::NormalTextSize());
  entry->SetEnabled(true);
  entry->Delete();
  EXPECT_TRUE(Opens(Qt::Key_0));
}

TEST_F(HotkeyWindowsTest, KeysNeedNoMenu) {
  desktop = std::make_unique<Desktop>(setup);
  desktop->Host().TheCommandBars()->Remove(u"Add-Ins");
  desktop->Start();
  ASSERT_EQ(Globals::gobjConnect->mcbMenuCommandBar, nullptr);
  EXPECT_TRUE(Opens(Qt::Key_Q));

  // A command that has nothing to work on says so without a box.
  Dialog().Hide();
  QApplication::setActiveWindow(&Window());
  QTest::keyClick(&Below<QLineEdit>(Window().Tree()), Qt::Key_Period, Qt::ControlModifier);
  EXPECT_EQ(Window().statusBar()->currentMessage(), Window().Words()(Text::NoResults));
}

}  // namespace
}  // namespace quorvane::desktop
