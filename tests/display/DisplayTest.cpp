// What only a real window system can show: keys and mouse from outside, the focus, the order of the windows, and what
// follows the pointer.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QMenuBar>
#include <QScrollBar>
#include <QTextBlock>
#include <QWindow>

#include "DisplayFixture.h"
#include "addin/dialogs/frmCodePreview.h"
#include "desktop/dialogs/FormWindow.h"
#include "desktop/dialogs/FormWindows.h"
#include "desktop/results/TabBarView.h"
#include "desktop/shell/AddInsMenu.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;

constexpr auto kEnter = "Return";
const QString kWord = QStringLiteral("NextOrderNo");

class RealWindows : public DisplayTest {
 protected:
  CodeEdit& Editor() { return Window().Code().Current()->Editor(); }
  QComboBox& SearchBox() { return dynamic_cast<QComboBox&>(WidgetOf(*Dialog().cmbSearch)); }

  /// The place of a word in the code window in front.
  QPoint OnWord(const QString& word) {
    QTextCursor found = Editor().document()->find(word, 0, QTextDocument::FindWholeWords);
    if (found.isNull()) throw std::runtime_error("no such word");
    found.setPosition(found.selectionStart() + 2);
    const QPoint place = Editor().cursorRect(found).center();
    if (!Editor().viewport()->rect().contains(place)) throw std::runtime_error("the word is out of sight");
    return On(*Editor().viewport(), place);
  }

  /// Away from the code and the list, both of which have to be reached.
  void MoveDialogAside() {
    See([this] {
      const QRect frame = Window().frameGeometry();
      DialogWindow().move(frame.right() - DialogWindow().frameGeometry().width() - 40, frame.top() + 60);
    });
    Must(IsInFront(SearchDialog()), "the search dialog beside the code");
  }

  FormWindow& PreviewWindow() { return *desktop->Forms().WindowOf(*forms::TheForms().Instance(u"frmCodePreview")); }

  void ShowResultsOf(const QString& text) {
    Walk([&] { SearchByKeys(text); });
  }
};

TEST_F(RealWindows, KeysAloneLeadFromTheFileToTheMatch) {
  StartInEnglish();
  Walk([&] {
    Press(QStringLiteral("ctrl+o"));
    Must(Soon([] { return dynamic_cast<QFileDialog*>(QApplication::activeWindow()) != nullptr; }), "the file dialog");
    Type(QString::fromStdString(folder / "samples/Shop/App/Shop.vbp"));
    Press(kEnter);
    Must(Soon([this] { return Window().windowTitle() == QStringLiteral("Shop.vbp - Quorvane"); }), "the project");

    Press(QStringLiteral("ctrl+q"));
    Must(IsInFront(SearchDialog()), "the search dialog");
    EXPECT_TRUE(See([this] { return SearchBox().hasFocus(); }));
    Type(kWord.toLower());
    Press(QStringLiteral("alt+g"));
    Press(kEnter);
    ASSERT_TRUE(Soon([this] { return List().isVisible() && List().Model().ListCount() > 1; }));
    Press(QStringLiteral("Escape"));
    ASSERT_TRUE(IsInFront(Main()));
    Press(QStringLiteral("ctrl+period"));
    EXPECT_TRUE(Soon([this] { return SelectedCode() == kWord; }));
    EXPECT_TRUE(Soon([this] { return Editor().hasFocus(); }));
    const int first = See([this] { return Editor().textCursor().position(); });
    Press(QStringLiteral("ctrl+period"));
    EXPECT_TRUE(Soon([this] { return List().Model().ListIndex() == 1; }));
    EXPECT_TRUE(Soon([&] { return SelectedCode() == kWord && Editor().textCursor().position() != first; }));
  });
}

TEST_F(RealWindows, MouseAloneLeadsFromTheTreeToTheMatch) {
  StartWithGroup();
  Walk([&] {
    OpenModule(QStringLiteral("modMain"));
    Click([this] { return OnWord(kWord); }, 1, 2);
    ASSERT_TRUE(Soon([this] { return SelectedCode() == kWord; }));
    Click([this] { return OnEntry(*Window().menuBar(), QStringLiteral("Add-Ins")); });
    Click([] { return OnEntry(*OpenMenu(), QStringLiteral("Quorvane")); });
    ASSERT_TRUE(IsInFront(SearchDialog()));
    EXPECT_TRUE(Soon([this] { return SearchBox().lineEdit()->selectedText() == kWord; }));

    Click([this] { return On(WidgetOf(*Dialog().optAreaButtons[2])); });
    Click([this] { return On(WidgetOf(*Dialog().cmdSearch)); });
    ASSERT_TRUE(Soon([this] { return List().Model().ListCount() >= 3; }));
    EXPECT_TRUE(See([] { return Dialog().Visible(); }));
    Click([this] { return OnCloseBox(DialogWindow()); });
    ASSERT_TRUE(Soon([] { return !Dialog().Visible(); }));
    Click([this] { return OnRow(2); }, 1, 2);
    EXPECT_TRUE(Soon([this] {
      return SelectedCode() == kWord && List().Model().ListIndex() == 2 && Editor().textCursor().blockNumber() != 29;
    }));
  });
}

TEST_F(RealWindows, DialogStaysAboveTheWindowItBelongsTo) {
  StartWithGroup();
  LeaveBoxes();
  Walk([&] {
    OpenModule(QStringLiteral("modMain"));
    ShowDialogByKey();
    const QPoint place = See([this] { return DialogWindow().pos(); });
    Press(QStringLiteral("ctrl+q"));
    Press(QStringLiteral("x"));
    ASSERT_TRUE(Soon([] { return Globals::gobjSetting->mstrSearchStr.ends_with(u'x'); }));
    EXPECT_EQ(See([this] { return DialogWindow().pos(); }), place) << "it stays when it is asked for again";
    MoveDialogAside();
    Click([this] { return On(*Editor().viewport(), {60, 20}); });
    ASSERT_TRUE(IsInFront(Main()));
    EXPECT_TRUE(LiesAbove(SearchDialog(), Main()));

    // A box that the main window's key brings up lies above the dialog too, and keeps both from the user.
    Press(QStringLiteral("ctrl+g"));
    ASSERT_TRUE(IsInFront(Box));
    EXPECT_TRUE(LiesAbove(Box, SearchDialog()));
    const bool before = See([this] { return dynamic_cast<QCheckBox&>(WidgetOf(*Dialog().chkMatchCase)).isChecked(); });
    Click([this] { return On(WidgetOf(*Dialog().chkMatchCase), {8, 8}); });
    Click([this] { return On(*Editor().viewport(), {60, 60}); });
    EXPECT_TRUE(IsInFront(Box));
    Press(kEnter);
    ASSERT_TRUE(IsInFront(Main()));
    EXPECT_EQ(See([this] { return dynamic_cast<QCheckBox&>(WidgetOf(*Dialog().chkMatchCase)).isChecked(); }), before);

    // As does one of the dialog's own, which gives the keyboard back to it.
    Click([this] { return On(*SearchBox().lineEdit()); });
    ASSERT_TRUE(IsInFront(SearchDialog()));
    Press(QStringLiteral("alt+x"));
    Press(QStringLiteral("alt+f"));
    Type(QStringLiteral("("));
    Press(kEnter);
    ASSERT_TRUE(IsInFront(Box));
    EXPECT_TRUE(LiesAbove(Box, SearchDialog()));
    Press(kEnter);
    ASSERT_TRUE(IsInFront(SearchDialog()));
    EXPECT_TRUE(LiesAbove(SearchDialog(), Main()));
    Type(QStringLiteral("x"));
    EXPECT_TRUE(Soon([] { return Globals::gobjSetting->mstrSearchStr.ends_with(u'x'); }));
  });
}

TEST_F(RealWindows, OptionsAndAboutComeAboveTheDialogAndHoldIt) {
  StartWithGroup();
  Walk([&] {
    ShowDialogByKey();
    const auto checked = [this] { return dynamic_cast<QCheckBox&>(WidgetOf(*Dialog().chkMatchCase)).isChecked(); };
    const bool before = See(checked);
    for (const auto& [entry, title] :
         {std::pair(QStringLiteral("Options ..."), QStringLiteral("Quorvane Options")),
          std::pair(QStringLiteral("About ..."), QStringLiteral("About Quorvane add-in"))}) {
      SCOPED_TRACE(title.toStdString());
      const auto window = [&title]() -> QWidget& { return WindowTitled(title); };
      Click([this] { return On(DialogWidget(), {4, 4}); }, 3);
      const Place chosen = [&entry] { return OnEntry(*OpenMenu(), entry); };
      if (entry.startsWith(QLatin1Char('A'))) {
        Point(chosen);
        Press(QStringLiteral("a"));
      } else {
        Click(chosen);
      }
      ASSERT_TRUE(IsInFront(window));
      EXPECT_TRUE(LiesAbove(window, SearchDialog()));
      See([&] { window().move(DialogWindow().frameGeometry().bottomLeft() + QPoint(0, 10)); });
      ASSERT_TRUE(IsInFront(window));
      Click([this] { return On(WidgetOf(*Dialog().chkMatchCase), {8, 8}); });
      EXPECT_TRUE(IsInFront(window));
      Click([&] { return OnCloseBox(window()); });
      ASSERT_TRUE(IsInFront(SearchDialog()));
      EXPECT_EQ(See(checked), before);
    }
    Click([this] { return On(WidgetOf(*Dialog().chkMatchCase), {8, 8}); });
    EXPECT_TRUE(Soon([&] { return checked() != before; }));
  });
}

TEST_F(RealWindows, FiveHotkeysWorkWhereverTheKeyboardIs) {
  StartWithGroup();
  auto& items = Globals::gobjHotkeyProxy->Manager->Items();
  items[4]->Key = {0x75, 0};  // F6
  items[5]->Key = {0x78, 0};  // F9
  Walk([&] {
    OpenModule(QStringLiteral("modMain"));
    SearchByKeys(QStringLiteral("order"));
    ShowDialogByKey();
    MoveDialogAside();
    const int found = See([this] { return CurrentPage()->mcolResult->Count(); });
    const std::pair<std::string, Place> focuses[] = {
        {"code window",
         [this] {
           return On(*Editor().viewport(), {60, 20});
         }},
        {"list", [this] { return OnRow(3); }},
        {"search dialog", [this] { return On(*SearchBox().lineEdit()); }},
    };
    for (const auto& [name, place] : focuses) {
      SCOPED_TRACE(name);
      const auto press = [&](const char* keys) {
        Click(place);
        See([this] { CurrentPage()->mlstResultList->SetListIndex(3); });
        Press(QString::fromLatin1(keys));
      };
      const auto indexIs = [this](int index) { return List().Model().ListIndex() == index; };
      press("ctrl+period");
      EXPECT_TRUE(Soon([&] { return indexIs(4); }));
      press("ctrl+comma");
      EXPECT_TRUE(Soon([&] { return indexIs(2); }));
      press("F9");
      EXPECT_TRUE(Soon([&] { return indexIs(-1) && List().Model().ListCount() == found; }));
      press("ctrl+q");
      EXPECT_TRUE(IsInFront(SearchDialog()));
      press("F6");  // while the list is there, nothing changes
      EXPECT_TRUE(See([this] { return Results().isVisible(); }));
      if (name == "list") continue;
      Click(place);
      See([] { Globals::gobjToolWindow->SetVisible(false); });
      Press(QStringLiteral("F6"));
      EXPECT_TRUE(Soon([this] { return Results().isVisible(); }));
    }
  });
}

TEST_F(RealWindows, KeysForTheNextAndLastMatchAreThoseOfTheLayout) {
  StartWithGroup();
  struct Row {
    const char* layout;
    const char* key;  // its scan code
    int leadsTo;
  };
  const Row rows[] = {
      {"us", "60", 4}, {"us", "59", 2}, {"de", "60", 4}, {"de", "59", 2}, {"de", "94", 3}, {"fr", "59", 4},
      {"fr", "58", 2}, {"fr", "60", 3}, {"ru", "60", 4}, {"ru", "59", 2}, {"ru", "61", 4},
  };
  Walk([&] {
    OpenModule(QStringLiteral("modMain"));
    SearchByKeys(QStringLiteral("order"));
    for (const Row& row : rows) {
      SCOPED_TRACE(std::string(row.layout) + " " + row.key);
      SetLayout(QString::fromLatin1(row.layout));
      See([this] { CurrentPage()->mlstResultList->SetListIndex(3); });
      Input({QStringLiteral("keydown"), QStringLiteral("37"), QStringLiteral("key"), QString::fromLatin1(row.key),
             QStringLiteral("keyup"), QStringLiteral("37")});
      const auto heard = [this] { return CurrentPage()->mlstResultList->ListIndex(); };
      EXPECT_TRUE(Soon([&] { return heard() == row.leadsTo; })) << See(heard);
    }
    SetLayout(QStringLiteral("us"));
  });
}

TEST_F(RealWindows, PreviewFollowsThePointerAndTakesNothing) {
  StartWithGroup();
  Walk([&] {
    SearchByKeys(QStringLiteral("order"));
    Click([this] { return OnRow(1); }, 3);
    Click([] { return OnEntry(*OpenMenu(), QStringLiteral("Code preview")); });
    const auto preview = [this] { return PreviewWindow().isVisible() && PreviewWindow().windowHandle()->isExposed(); };

    Point([this] { return OnRow(2); });
    ASSERT_TRUE(Soon(preview));
    const auto text = [] {
      return dynamic_cast<frmCodePreview&>(*forms::TheForms().Instance(u"frmCodePreview")).rtPreview->Text();
    };
    const std::u16string second = See(text);
    EXPECT_TRUE(IsInFront(Main()));
    EXPECT_TRUE(See([this] {
      const QRect place = PreviewWindow().geometry();
      const int tabs = Results().Bar().mapToGlobal(QPoint(0, 0)).y();
      return std::abs(place.left() - QCursor::pos().x() - 40) <= 2 && place.bottom() < tabs;
    }));
    Point([this] { return OnRow(6); });
    EXPECT_TRUE(Soon([&] { return text() != second; }));
    EXPECT_TRUE(Soon(preview));

    // It does not cover a window that waits for an answer, though the pointer is over the list.
    Click([this] { return OnRow(6); }, 3);
    Must(Soon([] { return OpenMenu() != nullptr; }), "the menu");
    Press(QStringLiteral("o"));
    const Shown options = []() -> QWidget& { return WindowTitled(QStringLiteral("Quorvane Options")); };
    ASSERT_TRUE(IsInFront(options));
    EXPECT_TRUE(Soon([&] { return !PreviewWindow().isVisible(); }, 1s));
    See([&] { options().close(); });
    ASSERT_TRUE(IsInFront(Main()));
    EXPECT_TRUE(Soon(preview));

    // Another program's window comes to the front while the pointer stays.
    QProcess other;
    other.start(QStringLiteral(QUORVANE_DESKTOP_PROGRAM),
                {QStringLiteral("--fault-box"), QStringLiteral("Another program"), QStringLiteral("0"),
                 QStringLiteral("Other")});
    Must(other.waitForStarted(), "another program");
    EXPECT_TRUE(Soon([] { return QApplication::activeWindow() == nullptr; }));
    EXPECT_TRUE(Soon([&] { return !PreviewWindow().isVisible(); }, 1s));
    other.kill();
    other.waitForFinished();
    ASSERT_TRUE(IsInFront(Main()));
    EXPECT_TRUE(Soon(preview));

    Point([this] { return OnEntry(*Window().menuBar(), QStringLiteral("File")); });
    EXPECT_TRUE(Soon([&] { return !PreviewWindow().isVisible(); }, 1s));
    EXPECT_TRUE(IsInFront(Main()));
  });
}

TEST_F(RealWindows, DraggedCodeTakesThePlaceOfTheSearchText) {
  StartWithGroup();
  Walk([&] {
    OpenModule(QStringLiteral("modMain"));
    const QString code = See([this] { return Editor().toPlainText(); });
    ShowDialogByKey();
    Type(QStringLiteral("before"));
    MoveDialogAside();
    Click([this] { return OnWord(kWord); }, 1, 2);
    ASSERT_TRUE(Soon([this] { return SelectedCode() == kWord; }));

    // So far from the two clicks this is no third one.
    for (const int step : {40, 44, 52, 64}) {
      Point([this, step] { return OnWord(kWord) + QPoint(step, 0); });
      if (step == 40) Input({QStringLiteral("mousedown"), QStringLiteral("1")});
    }
    Point([this] { return On(*SearchBox().lineEdit()); });
    Point([this] { return On(*SearchBox().lineEdit()) + QPoint(4, 1); });
    Input({QStringLiteral("mouseup"), QStringLiteral("1")});
    EXPECT_TRUE(Soon([this] { return SearchBox().currentText() == kWord; }));
    EXPECT_EQ(See([this] { return Editor().toPlainText(); }), code);
  });
}

TEST_F(RealWindows, MiddleButtonClosesATabAndTheWheelScrollsTheList) {
  StartWithGroup();
  Globals::gobjSetting->menumSearchTo = 0;
  Walk([&] {
    SearchByKeys(QStringLiteral("order"));
    SearchByKeys(QStringLiteral("total"));
    const auto tabs = [this] { return Results().Bar().count(); };
    ASSERT_EQ(See(tabs), 3);
    Click([this] { return On(Results().Bar(), Results().Bar().tabRect(0).center()); }, 2);
    EXPECT_TRUE(Soon([&] { return tabs() == 2; }));
    EXPECT_EQ(See([this] { return Results().Bar().tabText(0); }), QStringLiteral("Search 'total'"));

    const auto top = [this] { return List().verticalScrollBar()->value(); };
    Click([this] { return OnRow(2); }, 5, 2);
    EXPECT_TRUE(Soon([&] { return top() > 0; }));
    const int index = See([this] { return List().Model().ListIndex(); });
    Click([this] { return On(*List().viewport()); }, 4, 4);
    EXPECT_TRUE(Soon([&] { return top() == 0; }));
    EXPECT_EQ(See([this] { return List().Model().ListIndex(); }), index);
  });
}

TEST_F(RealWindows, ClosingByMouseAsksForUnsavedCode) {
  StartWithGroup();
  LeaveBoxes();
  const std::string before = folder.Read("samples/Shop/App/modMain.bas");
  Walk([&] {
    OpenModule(QStringLiteral("modMain"));
    Click([this] { return On(*Editor().viewport(), {60, 20}); });
    Type(QStringLiteral("abc"));
    ASSERT_TRUE(Soon([this] { return ModuleNamed(u"modMain").Modified(); }));
    const auto answer = [this](QMessageBox::StandardButton button) {
      Click([this] { return OnCloseBox(Window()); });
      ASSERT_TRUE(IsInFront(Box));
      EXPECT_TRUE(See([button] { return dynamic_cast<QMessageBox&>(Box()).button(button)->icon().isNull(); }));
      Click([button] { return On(*dynamic_cast<QMessageBox&>(Box()).button(button)); });
    };
    answer(QMessageBox::Cancel);
    EXPECT_TRUE(IsInFront(Main()));
    answer(QMessageBox::Discard);
    EXPECT_TRUE(Soon([this] { return !Window().isVisible(); }));
    EXPECT_TRUE(See([] { return Globals::gobjSetting == nullptr; }));
  });
  EXPECT_EQ(folder.Read("samples/Shop/App/modMain.bas"), before);
}

}  // namespace
}  // namespace quorvane::desktop
