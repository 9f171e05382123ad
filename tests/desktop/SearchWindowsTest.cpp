#include <QAbstractButton>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QMimeData>
#include <QRadioButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <QWheelEvent>
#include <cstring>
#include <map>
#include <numeric>

#include "SearchWindowsFixture.h"
#include "addin/core/Utilities.h"
#include "desktop/controls/StatusLabel.h"
#include "desktop/editor/CodeMarks.h"
#include "desktop/navigate/MatchMarks.h"
#include "desktop/platform/QtText.h"
#include "desktop/results/EmptyListNote.h"
#include "desktop/results/TabBarView.h"
#include "desktop/review/TaskMenu.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/forms/Label.h"
#include "platform/forms/TabControl.h"
#include "workbench/model/Component.h"
#include "workbench/model/Project.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;

/// The button that stands in for the last tab.
QToolButton& AddOf(const ResultView& results) {
  for (auto* button : results.findChildren<QToolButton*>(Qt::FindDirectChildrenOnly)) return *button;
  throw std::runtime_error("no such button");
}

constexpr int kNever = 2;  // the search dialog does not hide itself

TEST_F(SearchWindowsTest, AReplaceAllIsTakenBackAndDoneAgainInAllModules) {
  StartWithGroup();
  const auto texts = [this] {
    std::map<std::u16string, std::u16string> all;
    for (const auto& project : desktop->Host().Projects()) {
      for (const auto& component : project->Components()) {
        if (component->TheModule()) all[component->FullName()] = component->TheModule()->Text();
      }
    }
    return all;
  };
  TaskMenu& entries = Window().TaskEntries();
  EXPECT_FALSE(entries.UndoEntry().isEnabled());
  ModuleNamed(u"modMain").InsertLines(1, u"' total, not saved when the task begins");
  const auto before = texts();
  ShowDialog();
  Dialog().optModeButtons[gsRegular]->Press();
  TypeSearch(QStringLiteral("total"));
  QTest::keyClicks(&WidgetOf(*Dialog().cmbReplace), QStringLiteral("sum"));
  Dialog().optAreaButtons[2]->Press();
  AnswerNext(QMessageBox::Yes);
  Dialog().cmdReplace->Press();
  const auto after = texts();
  int lines = 0, modules = 0;
  for (const auto& [name, text] : before) {
    const auto was = Split(text, kCrLf), is = Split(after.at(name), kCrLf);
    ASSERT_EQ(was.size(), is.size());
    const int differ = std::inner_product(was.begin(), was.end(), is.begin(), 0, std::plus<>(), std::not_equal_to<>());
    lines += differ;
    modules += differ > 0;
  }
  ASSERT_GT(modules, 3);
  EXPECT_EQ(entries.UndoEntry().text().toStdString(),
            "Undo Replace All (" + std::to_string(lines) + " lines in " + std::to_string(modules) + " modules)");
  EXPECT_FALSE(entries.RedoEntry().isEnabled());
  entries.UndoEntry().trigger();
  EXPECT_EQ(texts(), before);
  entries.RedoEntry().trigger();
  EXPECT_EQ(texts(), after);

  // What was edited since is named, and stays.
  desktop->Host().Turns().Next();
  ModuleNamed(u"modMain").InsertLines(1, u"' mine");
  const auto edited = texts();
  QString told;
  AnswerNext(QMessageBox::Cancel, &told);
  entries.UndoEntry().trigger();
  EXPECT_TRUE(told.contains(QStringLiteral("Shop.modMain"))) << told.toStdString();
  EXPECT_EQ(texts(), edited);
  AnswerNext(QMessageBox::Yes);
  entries.UndoEntry().trigger();
  auto expected = before;
  expected[u"Shop.modMain"] = edited.at(u"Shop.modMain");
  EXPECT_EQ(texts(), expected);
}

TEST_F(SearchWindowsTest, ReferencesFillTheDialogWithTheNameAtTheCaret) {
  StartWithGroup();
  GlobalSetting& setting = *Globals::gobjSetting;
  setting.menumMode = gsRegular;
  setting.menumArea = gsCurProcedure;
  setting.mblnMatchCase = true;
  CodeEdit& editor = EditorOf(u"modMain");
  const QTextCursor found = editor.document()->find(QStringLiteral("TOTAL_FORMAT"));
  editor.Select(found.selectionStart() + 3, found.selectionStart() + 3);
  Window().Menu().Find(Text::GoReferences)->trigger();
  EXPECT_TRUE(Dialog().Visible());
  EXPECT_EQ(ToUtf8(setting.mstrSearchStr), "TOTAL_FORMAT");
  EXPECT_EQ(setting.menumMode, gsCommon);
  EXPECT_EQ(setting.menumArea, gsAllProjects);
  EXPECT_TRUE(setting.mblnWholeWord);
  EXPECT_FALSE(setting.mblnMatchCase);
}

TEST_F(SearchWindowsTest, MatchesAreMarkedInTheCodeMoveWithEditsAndGo) {
  StartWithGroup();
  Globals::gobjSetting->menumAutoHideSearchDlg = kNever;
  CodeEdit& editor = EditorOf(u"modMain");
  MatchMarks& matches = Window().Matches();
  /// Line, text and number of each mark.
  const auto marks = [](CodeEdit& of) {
    std::string all;
    for (const auto& place : of.Marks().Places()) {
      QTextCursor range(of.document());
      range.setPosition(place.begin);
      range.setPosition(place.end, QTextCursor::KeepAnchor);
      all += std::to_string(range.blockNumber() + 1) + " " + range.selectedText().toStdString() + " #" +
             std::to_string(place.number) + "\n";
    }
    return all;
  };
  Search(QStringLiteral("nextorderno"));
  matches.Update();
  EXPECT_EQ(marks(editor), "30 NextOrderNo #1\n32 NextOrderNo #2\n");
  CodeEdit& desk = EditorOf(u"frmDesk");
  EXPECT_EQ(marks(desk), "24 NextOrderNo #3\n") << "a window that is opened later";

  const auto step = [this](Text entry) {
    Window().Menu().Find(entry)->trigger();
    return Window().Matches().Status().text().toStdString();
  };
  EXPECT_EQ(step(Text::EditNextMatch), "Match 1 of 3");
  EXPECT_EQ(step(Text::EditNextMatch), "Match 2 of 3");
  EXPECT_EQ(step(Text::EditNextMatch), "Match 3 of 3");
  EXPECT_EQ(step(Text::EditPreviousMatch), "Match 2 of 3");

  ModuleNamed(u"modMain").InsertLines(1, u"' one\r\n' two");
  editor.Refresh();
  EXPECT_EQ(marks(editor), "32 NextOrderNo #1\n34 NextOrderNo #2\n") << "moved by an add-in";
  QTextCursor typing = editor.textCursor();
  const int before = editor.Marks().Places().at(1).begin;
  typing.setPosition(before);
  typing.insertText(QStringLiteral("in front "));
  typing.setPosition(editor.Marks().Places().at(1).end);
  typing.insertText(QStringLiteral(" behind"));
  EXPECT_EQ(editor.Marks().Places().at(1).begin, before + 9);
  EXPECT_EQ(marks(editor), "32 NextOrderNo #1\n34 NextOrderNo #2\n");
  desktop->Host().Turns().Next();
  const std::u16string line = ModuleNamed(u"modMain").Lines(34, 1);
  ModuleNamed(u"modMain").DeleteLines(34, 1);
  ModuleNamed(u"modMain").InsertLines(34, line + u" ' more");
  editor.Refresh();
  EXPECT_EQ(marks(editor), "32 NextOrderNo #1\n34 NextOrderNo #2\n") << "whole lines that still have it";
  typing.setPosition(editor.Marks().Places().at(0).begin + 3);
  typing.insertText(QStringLiteral("x"));
  EXPECT_EQ(marks(editor), "34 NextOrderNo #2\n");

  Search(QStringLiteral("mlngOrderNo = 1000"));
  matches.Update();
  EXPECT_EQ(marks(editor), "23 mlngOrderNo = 1000 #1\n");
  Globals::gobjPageManager->AddNewPage();
  EXPECT_TRUE(WaitUntil([&] { return marks(editor).empty(); }, 5s)) << "no match in the chosen tab";
}

/// The usual key of an editor searches for what is selected there.
TEST_F(SearchWindowsTest, FindTakesTheSelectionOfTheEditor) {
  StartWithGroup();
  Globals::gobjSetting->menumAutoHideSearchDlg = 0;
  Search(QStringLiteral("nextorderno"));
  EXPECT_EQ(Results().Bar().tabText(0), QStringLiteral("Search 'nextorderno'"));
  ClickRow(0, true);
  EXPECT_EQ(Window().focusWidget(), &Window().Code().Current()->Editor());
  List().setFocus();
  QTest::keyClick(&List(), Qt::Key_Escape);
  EXPECT_FALSE(Results().isVisible());
  QApplication::setActiveWindow(&Window());
  QTest::keyClick(&Window().Code().Current()->Editor(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(WaitUntil([] { return Dialog().Visible(); }, 2s));
  EXPECT_EQ(Globals::gobjSetting->mstrSearchStr, u"NextOrderNo");
}

TEST_F(SearchWindowsTest, TheEndOfATaskIsTold) {
  StartWithGroup();
  Globals::gobjSetting->menumAutoHideSearchDlg = kNever;
  Globals::gobjSetting->menumSearchTo = 1;
  const auto key = [this](Qt::Key wanted) {
    Window().statusBar()->clearMessage();
    QApplication::setActiveWindow(&Window());
    QTest::keyClick(&Window(), wanted, Qt::ControlModifier);
    return Window().statusBar()->currentMessage().toStdString();
  };
  EXPECT_EQ(key(Qt::Key_Period), "There are no search results yet");

  const struct {
    gsArea area;
    gsMode mode;
    const char* text;
    const char* replacement;  ///< null: a search
    std::vector<int> answers;
    const char* asked;  ///< how the last box begins, without its number
    const char* note;   ///< in the dialog
    int rows;
    const char* line;  ///< in the bar below
  } cases[] = {
      {gsAllProjects, gsCommon, "NextOrderNo", nullptr, {}, "", "", 3, ""},
      {gsAllProjects, gsRegular, "Next(", nullptr, {QMessageBox::Ok}, "Expected ')' in regular", "", 3, ""},
      {gsAllProjects, gsRegular, "Next(", "x", {QMessageBox::Ok}, "Expected ')' in regular", "", 3, ""},
      {gsAllProjects, gsRegular, "no such", "x", {QMessageBox::Yes}, "Are you", "", 3, "There was nothing to replace"},
      {gsAllProjects,
       gsRegular,
       "NextOrderNo",
       "NextNo",
       {QMessageBox::Yes},
       "Are you",
       "",
       3,
       "Replaced 3 places in 2 modules, comments included"},
      {gsCurModule, gsCommon, "x", nullptr, {QMessageBox::Ok}, "No code window is open.", "", 3, nullptr},
      {gsAllProjects, gsCommon, "NextOrderNo", nullptr, {}, "", "Nothing found", 0, ""},
  };
  ShowDialog();
  auto& status = dynamic_cast<StatusLabel&>(WidgetOf(*Dialog().lblCurModule));
  for (const auto& row : cases) {
    if (!Dialog().Visible()) ShowDialog();
    Dialog().optAreaButtons[row.area]->Press();
    Dialog().optModeButtons[row.mode]->Press();
    Dialog().cmbSearch->SetText(FromUtf8(row.text));
    Dialog().cmbReplace->SetText(FromUtf8(row.replacement != nullptr ? row.replacement : ""));
    Window().statusBar()->clearMessage();
    Dialog().SetFocus(Dialog().cmbSearch);
    QString asked;
    for (const int answer : row.answers) AnswerNext(answer, &asked);
    (row.replacement != nullptr ? Dialog().cmdReplace : Dialog().cmdSearch)->Press();
    EXPECT_EQ(asked.toStdString().substr(0, std::strlen(row.asked)), row.asked);
    EXPECT_EQ(asked.isEmpty(), row.answers.empty());
    EXPECT_EQ(status.Text().toStdString(), row.note) << row.text;
    EXPECT_EQ(EmptyListNote(List().Model()).toStdString(), row.note) << row.text;
    EXPECT_EQ(List().Model().ListCount(), row.rows) << row.text;
    if (row.line != nullptr) {
      EXPECT_EQ(Window().statusBar()->currentMessage().toStdString(), row.line);
    }
  }

  // The text of the last search gives way to what is typed, and a note to the next search.
  auto& find = dynamic_cast<QComboBox&>(WidgetOf(*Dialog().cmbSearch));
  EXPECT_EQ(find.lineEdit()->selectedText(), QStringLiteral("NextOrderNo"));
  QTest::keyClicks(find.lineEdit(), QStringLiteral("n"));
  EXPECT_EQ(Globals::gobjSetting->mstrSearchStr, u"n");
  EXPECT_EQ(status.Text(), QString());
  find.lineEdit()->selectAll();
  QApplication::clipboard()->setText(QStringLiteral("two\nlines"));
  find.lineEdit()->paste();
  EXPECT_EQ(find.lineEdit()->text(), QStringLiteral("twolines"));

  // Replace All needs one method and cares for no comment option, which is said before.
  auto* hint = WidgetOf(*Dialog().frameOption).findChild<QLabel*>();
  EXPECT_FALSE(hint->isVisible());
  QTest::keyClicks(&WidgetOf(*Dialog().cmbReplace), QStringLiteral("x"));
  EXPECT_TRUE(hint->isVisible());
  EXPECT_TRUE(hint->toolTip().contains(QStringLiteral("Regexp")));
  dynamic_cast<QAbstractButton&>(WidgetOf(*Dialog().optModeButtons[2])).click();
  EXPECT_TRUE(hint->toolTip().contains(QStringLiteral("comments")));
}

/// Under another ending the add-in would write nothing and say nothing.
TEST_F(SearchWindowsTest, ResultsAreSavedUnderTheOneEndingThatTheyHave) {
  StartWithGroup();
  QStringList names = {QStringLiteral("all.txt"), QStringLiteral("other.XML")};
  QString told;
  AnswerNext(QMessageBox::Ok, &told);
  QTimer hand;
  QObject::connect(&hand, &QTimer::timeout, &hand, [&] {
    auto* const dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || names.isEmpty()) return;
    const std::string name = folder / names.takeFirst().toStdString();
    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromStdString(name));
    static_cast<QDialog*>(dialog)->accept();
  });
  hand.start(10);
  const auto chosen = ThePlatform().MessageBoxes().AskSaveFileName({u"", u"XML|*.xml", u"Save", u".XML"});
  EXPECT_EQ(chosen, FromUtf8(folder / "other.XML"));
  EXPECT_TRUE(told.contains(QStringLiteral("all.txt"))) << told.toStdString();
}

TEST_F(SearchWindowsTest, MatchesOverTabsWideCharactersAndLines) {
  StartWithGroup();
  Globals::gobjSetting->menumAutoHideSearchDlg = kNever;
  ModuleNamed(u"modMain").InsertLines(1, u"' \u00e9\t\twide\tneedle one\r\n' needle two");
  Search(QStringLiteral("needle one\\r\\n' needle"));
  Dialog().optModeButtons[2]->Press();
  Dialog().chkIgnoreComment->Press();  // gray: comments alone
  Dialog().cmdSearch->Press();
  QCoreApplication::processEvents();
  ASSERT_EQ(List().Model().ListCount(), 1);
  ClickRow(0, true);
  EXPECT_EQ(SelectedCode(), QStringLiteral("needle one\u2029' needle"));

  // A chosen row is copied; a row that its owner cannot paint shows its text all the same.
  QApplication::setActiveWindow(&Window());
  List().setFocus();
  QTest::keyClick(&List(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), ToQString(List().Model().List(0)));
  CurrentPage()->mlstResultList->AddItem(u"without a match", 999);
  QCoreApplication::processEvents();
  const QImage row = List().viewport()->grab(List().RectOf(1)).toImage();
  int ink = 0;
  for (int x = 0; x < row.width(); ++x) {
    for (int y = 0; y < row.height(); ++y) ink += row.pixelColor(x, y).lightness() < 100 ? 1 : 0;
  }
  EXPECT_GT(ink, 50);
}

TEST_F(SearchWindowsTest, TabsOpenSwitchAndClose) {
  StartWithGroup();
  Globals::gobjSetting->menumSearchTo = 0;
  Globals::gobjSetting->menumAutoHideSearchDlg = kNever;
  Search(QStringLiteral("order"));
  Search(QStringLiteral("a & b"));
  Search(QStringLiteral("total"));
  TabBarView& bar = Results().Bar();
  const auto captions = [&] {
    QString all;
    for (int i = 0; i < bar.count(); ++i) all += bar.tabText(i) + QLatin1Char('|');
    return all.toStdString();
  };
  const auto middle = [&](int index) { return bar.tabRect(index).center(); };
  EXPECT_EQ(captions(), "Search 'order'|Search 'a && b'|Search 'total'||");
  EXPECT_FALSE(AddOf(Results()).isVisible());

  // A tab of the results and one of the code are closed by the same cross.
  EditorOf(u"modMain");
  QCoreApplication::processEvents();
  auto* codeTabs = Window().Code().findChild<QTabBar*>();
  EXPECT_EQ(codeTabs->tabButton(0, QTabBar::RightSide)->grab().toImage(),
            bar.tabButton(0, QTabBar::RightSide)->grab().toImage());

  QTest::mouseClick(&bar, Qt::LeftButton, {}, middle(0));
  EXPECT_EQ(CurrentPage()->mstrKey, u"Search1");
  EXPECT_EQ(List().Model().ListCount(), CurrentPage()->mcolResult->Count());
  EXPECT_TRUE(bar.tabToolTip(0).startsWith(QStringLiteral("Search 'order'\nmodule:"))) << "what may be cut";

  // The tab behind all pages makes one, also when it is hit twice in a row, and has no close button.
  const QPoint plus = middle(3);
  EXPECT_EQ(bar.tabButton(3, QTabBar::RightSide), nullptr);
  QTest::mouseClick(&bar, Qt::LeftButton, {}, plus);
  QTest::mouseDClick(&bar, Qt::LeftButton, {}, plus);
  QCoreApplication::processEvents();
  EXPECT_EQ(captions(), "Search 'order'|Search 'a && b'|Search 'total'|Search4||");

  dynamic_cast<QAbstractButton*>(bar.tabButton(1, QTabBar::RightSide))->click();
  QCoreApplication::processEvents();
  EXPECT_EQ(captions(), "Search 'order'|Search 'total'|Search4||");
  // The menu is about the tab below the mouse.
  QTest::mouseClick(&bar, Qt::LeftButton, {}, middle(3));
  QCoreApplication::processEvents();
  QTest::mouseClick(&bar, Qt::LeftButton, {}, middle(0));
  QTest::mouseClick(&bar, Qt::RightButton, {}, middle(3));
  Choose(QStringLiteral("Close tab"));
  QCoreApplication::processEvents();
  EXPECT_EQ(captions(), "Search 'order'|Search 'total'|Search4||");
  QTest::mouseClick(&bar, Qt::MiddleButton, {}, middle(2));
  QCoreApplication::processEvents();
  EXPECT_EQ(captions(), "Search 'order'|Search 'total'||");
  QTest::mouseClick(&bar, Qt::LeftButton, {}, middle(0));
  QTest::mouseDClick(&bar, Qt::LeftButton, {}, middle(0));
  QCoreApplication::processEvents();
  EXPECT_EQ(captions(), "Search 'total'||");

  const int width = bar.tabRect(0).width();
  for (int i = 0; i < 20; ++i) Globals::gobjPageManager->AddNewPage();
  QCoreApplication::processEvents();
  EXPECT_EQ(bar.tabRect(0).width(), width) << "tabs scroll before they cannot be read";
  ASSERT_TRUE(AddOf(Results()).isVisible());
  QTest::mouseClick(&AddOf(Results()), Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_EQ(bar.count(), 23) << "where the last tab is out of sight";
  QTest::mouseClick(&bar, Qt::RightButton, {}, middle(bar.currentIndex()));
  Choose(QStringLiteral("Close All tabs"));
  QCoreApplication::processEvents();
  EXPECT_EQ(captions(), "|");
  EXPECT_FALSE(Results().isVisible());
}

TEST_F(SearchWindowsTest, MenuOfTheListSwitchesWithTheTask) {
  StartWithGroup();
  Globals::gobjSetting->menumAutoHideSearchDlg = kNever;
  Search(QStringLiteral("order"));
  const int found = CurrentPage()->mcolResult->Count();
  const auto open = [this] {
    QTest::mouseClick(List().viewport(), Qt::RightButton, {}, List().RectOf(1).center());
    EXPECT_TRUE(WaitUntil([] { return OpenMenu() != nullptr; }, 1s));
  };
  open();
  EXPECT_EQ(List().Model().ListIndex(), 1);
  Choose(QStringLiteral("Clear result list"));
  EXPECT_EQ(CurrentPage()->mlstResultList->ListCount(), 0);
  Search(QStringLiteral("order"));
  open();
  Choose(QStringLiteral("Repeat search"));
  CurrentPage()->mlstResultList->Clear();
  EXPECT_TRUE(WaitUntil([&] { return CurrentPage()->mlstResultList->ListCount() == found; }, 1s));
}

TEST_F(SearchWindowsTest, WhileASearchRunsOnlyCancelWorks) {
  StartWithGroup();
  Globals::gobjSetting->menumAutoHideSearchDlg = 1;
  ShowDialog();
  TypeSearch(QStringLiteral("e"));
  Dialog().optAreaButtons[2]->Press();
  Globals::gobjPageManager->AddNewPage();
  bool looked = false;
  const Subscription atMatch = CurrentPage()->mobjTask->Query.Subscribe([&](bool&) {
    if (looked || CurrentPage()->mcolResult->Count() < 20) return;
    looked = true;
    EXPECT_FALSE(WidgetOf(*Dialog().cmbSearch).isEnabled());
    EXPECT_FALSE(WidgetOf(*Dialog().cmdSearch).isEnabled());
    QCoreApplication::processEvents();
    EXPECT_FALSE(Results().Bar().isEnabled());
    EXPECT_EQ(Dialog().lblCurModule->Caption(), u"modMain");
    QWidget& cancel = WidgetOf(*Dialog().cmdCancel);
    EXPECT_TRUE(cancel.isVisible());
    QTest::mouseClick(&cancel, Qt::LeftButton);
  });
  Globals::gobjSetting->menumSearchTo = 1;
  QTest::keyClick(&WidgetOf(*Dialog().cmbSearch), Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_TRUE(looked);
  EXPECT_EQ(CurrentPage()->mcolResult->Count(), 20);
  EXPECT_TRUE(Dialog().Visible());
  EXPECT_TRUE(Results().Bar().isEnabled());
  EXPECT_FALSE(WidgetOf(*Dialog().cmdCancel).isVisible());
  EXPECT_TRUE(WidgetOf(*Dialog().cmbSearch).hasFocus());
}

TEST_F(SearchWindowsTest, LeavingDuringASearchEndsItFirst) {
  StartWithGroup();
  ShowDialog();
  TypeSearch(QStringLiteral("e"));
  Globals::gobjPageManager->AddNewPage();
  Globals::gobjSetting->menumSearchTo = 1;
  bool closed = false;
  const Subscription atEnd = Window().Closing.Subscribe([&] { closed = true; });
  const Subscription atMatch = CurrentPage()->mobjTask->Query.Subscribe([&](bool&) {
    Window().close();
    EXPECT_FALSE(closed);
  });
  Dialog().cmdSearch->Press();
  EXPECT_TRUE(WaitUntil([&] { return closed; }, 2s));
}

TEST_F(SearchWindowsTest, ControlsOfTheDialogFollowTheirModel) {
  StartWithGroup();
  Globals::gobjSetting->menumAutoHideSearchDlg = kNever;
  ShowDialog();
  auto& ignore = dynamic_cast<QCheckBox&>(WidgetOf(*Dialog().chkIgnoreComment));
  const auto click = [&] {
    QTest::mouseClick(&ignore, Qt::LeftButton, {}, QPoint(8, ignore.height() / 2));
    return ignore.checkState();
  };
  ASSERT_EQ(ignore.checkState(), Qt::Checked);
  EXPECT_EQ(click(), Qt::PartiallyChecked);
  EXPECT_EQ(click(), Qt::Unchecked);
  EXPECT_EQ(click(), Qt::Checked);
  EXPECT_EQ(ignore.toolTip(), QStringLiteral("Only search in comment when gray"));

  auto& whole = dynamic_cast<QCheckBox&>(WidgetOf(*Dialog().chkWholeWord));
  auto& replace = dynamic_cast<QPushButton&>(WidgetOf(*Dialog().cmdReplace));
  TypeSearch(QStringLiteral("order"));
  EXPECT_FALSE(replace.isEnabled());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_X, Qt::AltModifier);
  EXPECT_EQ(whole.text(), QStringLiteral("Single line"));
  EXPECT_TRUE(replace.isEnabled());
  EXPECT_FALSE(dynamic_cast<QRadioButton&>(WidgetOf(*Dialog().optModeButtons[0])).isChecked());

  const auto bottom = [this](const auto& frame) { return WidgetOf(*frame).geometry().bottom(); };
  EXPECT_EQ(bottom(Dialog().frameArea), bottom(Dialog().frameMode));
  EXPECT_EQ(bottom(Dialog().frameArea), bottom(Dialog().frameOption));

  // Tab passes over the options that are not set; arrows choose among them.
  WidgetOf(*Dialog().cmbReplace).setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &WidgetOf(*Dialog().optAreaButtons[1]));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(Globals::gobjSetting->menumArea, gsAllProjects);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &WidgetOf(*Dialog().optModeButtons[2]));

  // The histories, the newest first; picking an entry takes its text.
  Search(QStringLiteral("total"));
  Search(QStringLiteral("order"));
  auto& combo = dynamic_cast<QComboBox&>(WidgetOf(*Dialog().cmbSearch));
  ASSERT_EQ(combo.count(), 2);
  EXPECT_EQ(combo.itemText(0), QStringLiteral("order"));
  TypeSearch(QStringLiteral("other"));
  QTest::keyClick(&combo, Qt::Key_Down);
  EXPECT_EQ(Globals::gobjSetting->mstrSearchStr, u"order");
  QTest::keyClick(&combo, Qt::Key_Down);
  EXPECT_EQ(Globals::gobjSetting->mstrSearchStr, u"total");

  // A dropped text takes the place of all that was there.
  QMimeData dropped;
  dropped.setText(QStringLiteral("two\r\nlines"));
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(combo.lineEdit(), &enter);
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(combo.lineEdit(), &drop);
  EXPECT_EQ(Globals::gobjSetting->mstrSearchStr, u"twolines");

  // The address of a file is none, though file managers offer it as one too; and the wheel moves no box by the way.
  dropped.setUrls({QUrl(QStringLiteral("file:///tmp/a.bas"))});
  QCoreApplication::sendEvent(combo.lineEdit(), &enter);
  EXPECT_FALSE(enter.isAccepted());
  WidgetOf(*Dialog().cmbReplace).setFocus();
  QWheelEvent wheel(QPointF(5, 5), combo.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), {}, {}, {}, false);
  QCoreApplication::sendEvent(&combo, &wheel);
  EXPECT_EQ(Globals::gobjSetting->mstrSearchStr, u"twolines");

  QTest::keyClick(&combo, Qt::Key_Escape);
  EXPECT_FALSE(DialogWidget().window()->isVisible());
  EXPECT_TRUE(Dialog().Loaded());
}

TEST_F(SearchWindowsTest, RowsAndStatusLineHaveTheFontOfTheDesktop) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPointSize(16);
  QApplication::setFont(large);
  StartWithGroup();
  Search(QStringLiteral("order"));
  QCoreApplication::processEvents();
  EXPECT_EQ(CurrentPage()->mlstResultList->Font().Size, 16);
  EXPECT_GE(List().RectOf(0).height(), QFontMetrics(large).height());
  const QWidget& line = Below<StatusLabel>(Results());
  EXPECT_GE(line.height(), QFontMetrics(large).height());
  EXPECT_GE(List().geometry().top(), QFontMetrics(large).height()) << "the list lies over no letter";
  Stop();
  QApplication::setFont(before);
}

TEST_F(SearchWindowsTest, ListOfManyRowsScrollsAndFindsRowsByPlace) {
  StartWithGroup();
  Globals::gobjToolWindow->SetVisible(true);
  Globals::gobjPageManager->AddNewPage();
  const auto list = CurrentPage()->mlstResultList;
  for (int i = 0; i < 100'000; ++i) list->AddItem(u"row " + ToText(i), i + 1);
  QCoreApplication::processEvents();
  List().setFocus();
  QTest::keyClick(&List(), Qt::Key_End);
  EXPECT_EQ(list->ListIndex(), 99'999);
  EXPECT_FALSE(List().RectOf(99'999).isNull());
  EXPECT_TRUE(List().RectOf(0).isNull());
  QTest::keyClick(&List(), Qt::Key_PageUp);
  EXPECT_FALSE(List().RectOf(list->ListIndex()).isNull());
  EXPECT_LT(list->ListIndex(), 99'999);

  const Utilities& utilities = *Globals::gobjUtilities;
  const QPoint inside = List().RectOf(99'998).center();
  EXPECT_EQ(utilities.GetListIndex(list->hWnd(), static_cast<float>(inside.x()), static_cast<float>(inside.y())),
            99'998);
  EXPECT_GE(utilities.GetListIndex(list->hWnd(), 5, static_cast<float>(List().height() + 50)), list->ListCount());
  EXPECT_GE(utilities.GetListIndex(list->hWnd(), -4, 5), list->ListCount());

  QTest::keyClick(&List(), Qt::Key_End);
  list->SetHorizontalExtent(5000);
  QCoreApplication::processEvents();
  EXPECT_EQ(List().horizontalScrollBar()->maximum(), 5000 - List().viewport()->width());
  EXPECT_TRUE(List().viewport()->rect().contains(List().RectOf(99'999))) << "the bar hides no selected row";
  CanvasRect drawn;
  const auto onDraw =
      list->DrawItem.Subscribe([&](std::int32_t, Canvas&, bool, const CanvasRect& rcItem) { drawn = rcItem; });
  List().horizontalScrollBar()->setValue(700);
  List().grab();
  EXPECT_EQ(drawn.Left, 0) << "a row is counted from its own start";
  EXPECT_EQ(drawn.Right, 5000);
  QTest::keyClick(&List(), Qt::Key_Home);
  EXPECT_EQ(list->ListIndex(), 0);
  EXPECT_FALSE(List().RectOf(0).isNull());
}

}  // namespace
}  // namespace quorvane::desktop
