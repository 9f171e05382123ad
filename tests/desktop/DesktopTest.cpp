#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QDialog>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>

#include "DesktopFixture.h"
#include "base/Error.h"
#include "desktop/files/FileCommands.h"
#include "desktop/platform/QtWindows.h"
#include "desktop/shell/AddInsMenu.h"
#include "desktop/shell/ProjectTree.h"
#include "desktop/welcome/NoticeBar.h"
#include "desktop/welcome/StartPage.h"
#include "workbench/model/Component.h"
#include "workbench/model/Desk.h"
#include "workbench/model/HostCommandBar.h"
#include "workbench/model/HostCommandBars.h"
#include "workbench/model/HostWindow.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Pane.h"
#include "workbench/model/Project.h"
#include "workbench/model/ToolWindow.h"
#include "workbench/project/Opener.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;

constexpr char kShop[] = "samples/Shop/Shop.vbg";
constexpr char kMain[] = "samples/Shop/App/modMain.bas";

class ShopTest : public DesktopTest {
 protected:
  ShopTest() {
    Start();
    Open(kShop);
  }
};

/// What a person reads in the tree, a line an item.
void Collect(const QTreeWidgetItem& item, const std::string& indent, std::string& out) {
  out += indent + item.text(0).toStdString() + "\n";
  for (int i = 0; i < item.childCount(); ++i) Collect(*item.child(i), indent + " ", out);
}

TEST_F(DesktopTest, TreeShowsTheGroupByKind) {
  Start();
  Window().SetLanguage(1);
  Open(kShop);
  std::string shown;
  Collect(*Window().Tree().Tree().topLevelItem(0)->child(0), "", shown);
  EXPECT_EQ(shown,
            "Shop\n Forms\n  FrmAbout\n  frmDesk\n  frmOrder\n Modules\n  modMain\n  modMoney\n  modWin32\n"
            " Class modules\n  COrder\n  COrderLine\n User controls\n  TotalBox\n Related documents\n  Notes.txt\n"
            "  Shop.res\n");
  EXPECT_EQ(Window().Tree().Tree().topLevelItem(0)->text(0), QStringLiteral("Shop.vbg"));
  EXPECT_EQ(Window().windowTitle(), QStringLiteral("Shop.vbg - Quorvane"));
  EXPECT_TRUE(ItemNamed(QStringLiteral("Shop"))->font(0).bold());
}

TEST_F(ShopTest, EnterInTheTreeOpensTheCode) {
  QTreeWidget& tree = Window().Tree().Tree();
  tree.setCurrentItem(ItemNamed(QStringLiteral("COrder")));
  QTest::keyClick(&tree, Qt::Key_Return);
  ASSERT_NE(Window().Code().Current(), nullptr);
  EXPECT_EQ(Window().Code().Current()->TheComponent()->Name(), u"COrder");
  EXPECT_EQ(ToUtf8(desktop->Host().ActiveCodePane()->CodeModule()->Parent()->Name()), "COrder");

  // A second time it is the same window; a file without code has none.
  QTest::keyClick(&tree, Qt::Key_Return);
  tree.setCurrentItem(ItemNamed(QStringLiteral("Notes.txt")));
  QTest::keyClick(&tree, Qt::Key_Return);
  EXPECT_EQ(Window().Code().CodeWindows().size(), 1U);
}

TEST_F(ShopTest, FilterLeavesWhatMatches) {
  auto* filter = Window().Tree().findChild<QLineEdit*>();
  QTest::keyClicks(filter, QStringLiteral("money"));
  EXPECT_FALSE(ItemNamed(QStringLiteral("modMoney"))->isHidden());
  EXPECT_TRUE(ItemNamed(QStringLiteral("modMain"))->isHidden());
  EXPECT_FALSE(ItemNamed(QStringLiteral("Shop"))->isHidden());
}

TEST_F(ShopTest, EditUndoSaveRoundTrip) {
  const std::string before = folder.Read(kMain);
  CodeEdit& editor = EditorOf(u"modMain");
  editor.GoToLine(3);
  QTest::keyClicks(&editor, QStringLiteral("Dim a"));
  QTest::keyClick(&editor, Qt::Key_Return);
  EXPECT_EQ(ModuleNamed(u"modMain").Lines(3, 1), u"Dim a");
  EXPECT_TRUE(Window().Code().Current()->isWindowModified());
  EXPECT_TRUE(WaitUntil([&] { return ItemNamed(QStringLiteral("modMain \u2022")) != nullptr; }, 1s));

  // Word by word back, and forth again.
  editor.Undo();
  EXPECT_NE(ModuleNamed(u"modMain").Lines(3, 1), u"Dim a");
  editor.Undo();
  EXPECT_EQ(ModuleNamed(u"modMain").Lines(3, 1).substr(0, 4), u"Dim ");
  editor.Undo();
  EXPECT_FALSE(ModuleNamed(u"modMain").Modified());
  EXPECT_FALSE(Window().Code().Current()->isWindowModified());
  editor.Redo();
  editor.Redo();

  Window().Menu().Find(Text::FileSave)->trigger();
  const std::string after = folder.Read(kMain);
  EXPECT_FALSE(Window().Code().Current()->isWindowModified());
  EXPECT_EQ(ItemNamed(QStringLiteral("modMain \u2022")), nullptr);
  const std::size_t typed = after.find("Dim a' The start");
  ASSERT_NE(typed, std::string::npos);
  EXPECT_EQ(after.substr(0, typed) + after.substr(typed + 5), before);
}

TEST_F(ShopTest, EditsOfTheAddInAndOfTheUserUndoAlike) {
  CodeEdit& editor = EditorOf(u"modMain");
  workbench::Module& module = ModuleNamed(u"modMain");
  const std::u16string text = module.Text();
  QTest::keyClicks(&editor, QStringLiteral("x"));
  QTest::mouseClick(editor.viewport(), Qt::LeftButton);  // a command begins with an input
  module.DeleteLines(1, 2);
  module.InsertLines(1, u"replaced");
  QTest::keyClick(&editor, Qt::Key_End);  // shows the text as it is now
  EXPECT_TRUE(editor.toPlainText().startsWith(QStringLiteral("replaced\n")));
  QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(editor.toPlainText().startsWith(QStringLiteral("xOption")));
  QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(ToUtf8(module.Text()), ToUtf8(text));
}

TEST_F(DesktopTest, SelectionIsTheSameInPaneAndEditor) {
  struct Case {
    vbide::Selection selection;
    const char* selected;
  };
  folder.Write("wide.bas",
               "\x93\xFA\x96\x7B = \"\x8C\xEA\"\r\n"  // two wide characters, one more in quotes
               "\tIf a\tThen\r\n"
               "end\r\n");
  const Case cases[] = {
      {{1, 1, 1, 5}, "\u65E5\u672C"}, {{1, 3, 1, 5}, "\u672C"},       {{1, 9, 1, 11}, "\u8A9E"}, {{2, 2, 2, 4}, "If"},
      {{2, 6, 2, 7}, "\t"},           {{1, 9, 2, 2}, "\u8A9E\"\n\t"}, {{3, 1, 3, 4}, "end"},     {{3, 4, 3, 4}, ""},
  };
  Start("932");
  Open("wide.bas");
  CodeEdit& editor = EditorOf(u"wide");
  const auto pane = desktop->Host().ActiveCodePane();
  for (const Case& row : cases) {
    pane->SetSelection(row.selection);
    QString selected = editor.textCursor().selectedText();
    EXPECT_EQ(selected.replace(QChar(u'\u2029'), QLatin1Char('\n')).toStdString(), row.selected);
    // And back: the editor's selection gives the same columns.
    const int anchor = editor.textCursor().anchor();
    const int position = editor.textCursor().position();
    editor.Select(0, 1);
    editor.Select(position, anchor);
    EXPECT_EQ(pane->GetSelection(), row.selection) << row.selected;
  }
}

TEST_F(ShopTest, TreeThatATinyWindowSqueezedComesBack) {
  const QSize size = Window().size();
  auto* dock = Window().findChild<QDockWidget*>(QStringLiteral("ProjectTree"));
  QCoreApplication::processEvents();
  const int width = dock->width();
  Window().resize(Window().minimumSizeHint());
  QCoreApplication::processEvents();
  EXPECT_LT(dock->width(), width);
  Window().resize(size);
  QCoreApplication::processEvents();
  EXPECT_EQ(dock->width(), width);
}

TEST_F(DesktopTest, LocatedMatchComesIntoView) {
  Start();
  std::string code;
  for (int i = 1; i <= 500; ++i) code += "line " + std::to_string(i) + "\r\n";
  folder.Write("long.bas", code);
  Open("long.bas");
  const auto locate = [&](std::int32_t line) {
    const auto pane = ModuleNamed(u"long").CodePane();
    pane->SetSelection({line, 1, line, 5});
    pane->Show();
    desktop->Windows().SendMessage(desktop->Host().TheDesk()->Panes().front()->TheWindow()->Handle(), 0x1043, 0, 0);
  };
  locate(300);  // in a window that this opens
  CodeEdit& editor = Window().Code().Current()->Editor();
  const auto visible = [&] { return editor.viewport()->rect().contains(editor.cursorRect()); };
  const auto above = [&] { return editor.cursorRect().top() * 3.0 / editor.viewport()->height(); };
  EXPECT_TRUE(WaitUntil([&] { return visible(); }, 2s));
  EXPECT_NEAR(above(), 1, 0.15);
  const auto pane = desktop->Host().ActiveCodePane();
  pane->SetSelection({400, 1, 400, 5});
  EXPECT_TRUE(visible());
  EXPECT_NEAR(above(), 1, 0.15);
  // It is clear of a dialog that lies over that place.
  QDialog over(&Window());
  over.setGeometry(QRect(editor.viewport()->mapToGlobal(QPoint(0, 40)), QSize(400, editor.viewport()->height() / 2)));
  over.show();
  locate(200);
  EXPECT_TRUE(visible());
  EXPECT_FALSE(over.frameGeometry().contains(editor.viewport()->mapToGlobal(editor.cursorRect().center())));
  over.hide();
  // Scrolled away and located again: nothing changes in the pane, and yet it is to be seen.
  editor.verticalScrollBar()->setValue(0);
  EXPECT_FALSE(visible());
  pane->SetSelection({400, 1, 400, 5});
  desktop->Windows().SendMessage(desktop->Host().TheDesk()->Panes().front()->TheWindow()->Handle(), 0x1043, 0, 0);
  EXPECT_TRUE(visible());
}

TEST_F(ShopTest, WindowsFollowThePanesAndBack) {
  CodeArea& area = Window().Code();
  EditorOf(u"modMain");
  EditorOf(u"COrder");
  EditorOf(u"frmDesk");
  ASSERT_EQ(area.CodeWindows().size(), 3U);
  const auto active = [&] { return ToUtf8(desktop->Host().ActiveCodePane()->CodeModule()->Parent()->Name()); };
  const auto windowOf = [&](const char16_t* name) {
    for (CodeWindow* window : area.CodeWindows()) {
      if (window->TheComponent()->Name() == name) return window;
    }
    return static_cast<CodeWindow*>(nullptr);
  };
  area.setActiveSubWindow(windowOf(u"modMain"));
  EXPECT_EQ(active(), "modMain");
  windowOf(u"modMain")->close();
  EXPECT_EQ(area.CodeWindows().size(), 2U);
  EXPECT_EQ(active(), "frmDesk");
  EXPECT_EQ(area.Current(), windowOf(u"frmDesk"));

  area.SetTabs(false);
  desktop->Host().ActiveCodePane()->Window()->SetWindowState(2);
  EXPECT_TRUE(windowOf(u"frmDesk")->isMaximized());
  windowOf(u"frmDesk")->showNormal();
  desktop->Host().ActiveCodePane()->Window()->SetWindowState(2);
  EXPECT_TRUE(windowOf(u"frmDesk")->isMaximized());

  // The text of a closed window is not lost, and its window comes back.
  EXPECT_EQ(&*EditorOf(u"modMain").TheModule(), &ModuleNamed(u"modMain"));
  desktop->Host().Close(desktop->Host().Projects().front());
  EXPECT_TRUE(area.CodeWindows().empty());
}

TEST_F(DesktopTest, TypingKeysOfAnEditor) {
  folder.Write("keys.bas", "    a\r\nb\r\nc\r\n");
  Start();
  Open("keys.bas");
  CodeEdit& editor = EditorOf(u"keys");
  workbench::Module& module = ModuleNamed(u"keys");
  const auto text = [&] { return ToUtf8(ReplaceAll(module.Text(), kCrLf, u"|")); };
  editor.Select(5, 5);
  QTest::keyClick(&editor, Qt::Key_Return);
  EXPECT_EQ(text(), "    a|    |b|c");
  QTest::keyClick(&editor, Qt::Key_Tab);
  EXPECT_EQ(text(), "    a|        |b|c");
  editor.Select(15, 18);
  QTest::keyClick(&editor, Qt::Key_Tab);
  EXPECT_EQ(text(), "    a|        |    b|    c");
  QTest::keyClick(&editor, Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(text(), "    a|        |b|c");
  editor.Undo();
  EXPECT_EQ(text(), "    a|        |    b|    c");

  QApplication::clipboard()->setText(QStringLiteral("x\r\ny\u2028z"));
  editor.selectAll();
  editor.paste();
  EXPECT_EQ(text(), "x|y|z");
}

TEST_F(ShopTest, AsksBeforeEditsAreLost) {
  const std::string before = folder.Read(kMain);
  QTest::keyClicks(&EditorOf(u"modMain"), QStringLiteral("x"));
  QString question;
  AnswerNext(QMessageBox::Cancel, &question);
  EXPECT_FALSE(Window().close());
  EXPECT_TRUE(question.contains(QStringLiteral("Shop.modMain"))) << question.toStdString();
  EXPECT_TRUE(question.contains(Texts{0}.Counted(Text::SaveQuestion, 1))) << question.toStdString();
  EXPECT_TRUE(Window().isVisible());

  AnswerNext(QMessageBox::Discard);
  Open("samples/Shop/Ledger/Ledger.vbp");
  EXPECT_EQ(folder.Read(kMain), before);
  EXPECT_EQ(desktop->Host().Projects().size(), 1U);

  Open(kShop);
  QTest::keyClicks(&EditorOf(u"modMain"), QStringLiteral("x"));
  AnswerNext(QMessageBox::Save);
  EXPECT_TRUE(Window().close());
  EXPECT_NE(folder.Read(kMain), before);
}

TEST_F(ShopTest, WhatCannotBeOpenedLeavesWhatIsOpen) {
  QString told;
  AnswerNext(QMessageBox::Ok, &told);
  Open("missing.vbg");
  EXPECT_TRUE(told.contains(QStringLiteral("missing.vbg"))) << told.toStdString();
  EXPECT_EQ(desktop->Host().Projects().size(), 3U);
  EXPECT_EQ(Window().windowTitle(), QStringLiteral("Shop.vbg - Quorvane"));

  folder.Write("half.vbp", "Name=\"Half\"\r\nModule=modGone; gone.bas\r\n");
  Open("half.vbp");
  EXPECT_EQ(desktop->Host().Projects().size(), 1U);
  NoticeBar& notice = Window().Notice();
  ASSERT_TRUE(notice.isVisible());
  EXPECT_FALSE(notice.Lines().isVisible()) << "on demand";
  notice.ListButton().click();
  EXPECT_TRUE(notice.Lines().isVisible());
  for (const QString& words : {QStringLiteral("未找到"), QStringLiteral("not found")}) {
    Window().SetLanguage(words == QStringLiteral("not found") ? 1 : 0);
    ASSERT_EQ(notice.Lines().count(), 1);
    const QString line = notice.Lines().item(0)->text();
    EXPECT_EQ(line.toStdString(), (folder / "half.vbp") + ": gone.bas: " + words.toStdString());
  }
  notice.CloseButton().click();
  EXPECT_FALSE(notice.isVisible());
  Open(kShop);
  EXPECT_FALSE(notice.isVisible()) << "nothing is missing";
}

TEST_F(ShopTest, SaveThatFailsIsToldAndLosesNothing) {
  EditorOf(u"modMain").insertPlainText(QStringLiteral("\u65E5"));  // not in code page 1252
  QString told;
  AnswerNext(QMessageBox::Ok, &told);
  Window().Menu().Find(Text::FileSaveAll)->trigger();
  EXPECT_TRUE(told.contains(QStringLiteral("modMain.bas"))) << told.toStdString();
  EXPECT_TRUE(ModuleNamed(u"modMain").Modified());
  ModuleNamed(u"modMain").Undo();
}

TEST_F(ShopTest, SavesOneFileOrAll) {
  const std::string order = "samples/Shop/App/Classes/COrder.cls";
  const std::string before = folder.Read(order);
  QTest::keyClicks(&EditorOf(u"COrder"), QStringLiteral("'"));
  QTest::keyClicks(&EditorOf(u"modMain"), QStringLiteral("'"));
  Window().Menu().Find(Text::FileSave)->trigger();
  EXPECT_FALSE(ModuleNamed(u"modMain").Modified());
  EXPECT_EQ(folder.Read(order), before);
  EXPECT_FALSE(Window().Menu().Find(Text::FileSave)->isEnabled());
  Window().Menu().Find(Text::FileSaveAll)->trigger();
  EXPECT_EQ(folder.Read(order).size(), before.size() + 1);
  EXPECT_EQ(Window().Files().ModifiedCount(), 0);
}

TEST_F(DesktopTest, DroppedFilesAreOpened) {
  Start();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(folder / kShop))});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&Window(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&Window(), &drop);
  EXPECT_EQ(desktop->Host().Projects().size(), 3U);
}

TEST_F(ShopTest, RecentFilesAndLayoutLastBetweenRuns) {
  Open("samples/Shop/Ledger/Ledger.vbp");
  Window().resize(900, 650);
  Window().Code().SetTabs(false);
  Window().Code().SetTextSize(17);
  EXPECT_TRUE(Window().close());
  Stop();

  Start();
  EXPECT_FALSE(Window().Code().HasTabs());
  EXPECT_EQ(Window().Code().TextSize(), 17);
  EXPECT_EQ(Window().size(), QSize(900, 650));
  QMenu* recent = Window().Menu().Find(Text::FileRecent)->menu();
  Q_EMIT recent->aboutToShow();
  ASSERT_EQ(recent->actions().size(), 2);
  EXPECT_TRUE(recent->actions()[0]->text().contains(QStringLiteral("Ledger.vbp")));
  recent->actions()[1]->trigger();
  EXPECT_EQ(desktop->Host().Projects().size(), 3U);
}

TEST_F(DesktopTest, AStartWithoutFilesOffersWhatWasOpenedAndASample) {
  Start();
  StartPage& page = Window().Start();
  EXPECT_TRUE(page.isVisible());
  EXPECT_TRUE(page.Recent().isEmpty());
  page.SampleButton().click();
  const std::string copy = "config/samples/Shop/App/modMain.bas";
  EXPECT_EQ(folder.Read(copy), folder.Read(kMain));
  EXPECT_EQ(desktop->Host().Projects().size(), 3U);
  EXPECT_FALSE(Window().Notice().isVisible()) << "nothing of the sample is missing";
  EXPECT_FALSE(page.isVisible());
  folder.Write(copy, "' mine\r\n");

  Window().Files().CloseAll();
  EXPECT_TRUE(page.isVisible());
  ASSERT_EQ(page.Recent().size(), 1);
  page.Recent().constFirst()->click();
  EXPECT_EQ(desktop->Host().Projects().size(), 3U);
  Window().Files().CloseAll();
  page.SampleButton().click();
  EXPECT_EQ(folder.Read(copy), "' mine\r\n") << "a sample that was changed stays";
}

TEST_F(DesktopTest, OpeningCanBeCancelled) {
  Start();
  std::size_t told = 0;
  try {
    workbench::OpenFilesInto(desktop->Host(), {folder / kShop}, [&](std::size_t begun, std::size_t total) {
      EXPECT_LT(begun, total);
      return ++told < 3;
    });
    FAIL() << "it went on";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number, 18);
  }
  EXPECT_EQ(told, 3U);
  EXPECT_TRUE(desktop->Host().Projects().empty());
}

TEST_F(DesktopTest, ToolWindowIsADock) {
  Start();
  EXPECT_LE(Window().width(), Window().screen()->availableSize().width());
  ASSERT_EQ(Window().ToolDocks().size(), 1U);
  ToolDock& dock = *Window().ToolDocks().front();
  const auto& tool = desktop->Host().TheWindows()->ToolWindows().front();
  EXPECT_TRUE(dock.isHidden());
  EXPECT_EQ(dock.objectName(), QStringLiteral("{CCE2FDE8-B0EC-4528-9A82-23AE56A913CB}"));
  tool->SetCaption(u"Results");
  tool->SetVisible(true);
  EXPECT_TRUE(dock.isVisible());
  EXPECT_EQ(dock.windowTitle(), QStringLiteral("Results"));
  dock.close();
  EXPECT_FALSE(tool->Visible());
  dock.toggleViewAction()->trigger();
  EXPECT_TRUE(tool->Visible());
  tool->Close();
  EXPECT_TRUE(dock.isHidden());
}

TEST_F(DesktopTest, AddInsMenuFollowsTheAddInAndItsLanguage) {
  Start();
  auto* menu = dynamic_cast<AddInsMenu*>(Window().Menu().Find(Text::MenuAddIns)->menu());
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->actions().size(), 1);
  const QString chinese = menu->actions()[0]->text();
  EXPECT_EQ(chinese.section(QLatin1Char('\t'), 1).toStdString(), "Ctrl+Q");
  Globals::Language().Language = 1;
  Globals::Language().UpdateAllUI();
  EXPECT_NE(menu->actions()[0]->text(), chinese);
  EXPECT_EQ(Window().Menu().Find(Text::MenuFile)->text(), QStringLiteral("&File"));

  const auto bar = desktop->Host().TheCommandBars()->Bars().front();
  const auto button = bar->AddControl(1);
  button->SetCaption(u"Mine");
  int clicks = 0;
  const auto click =
      desktop->Host().Events()->CommandBarEvents(button)->Click.Subscribe([&](const auto&, bool&, bool&) { ++clicks; });
  ASSERT_EQ(menu->actions().size(), 2);
  menu->actions()[1]->trigger();
  EXPECT_EQ(clicks, 1);
  button->Delete();
  EXPECT_EQ(menu->actions().size(), 1);
}

TEST_F(DesktopTest, EveryMenuEntryHasWordsInBothLanguages) {
  for (int i = 0; i < static_cast<int>(Text::Count); ++i) {
    const std::string chinese = Texts{0}(static_cast<Text>(i)).toStdString();
    const std::string english = Texts{1}(static_cast<Text>(i)).toStdString();
    EXPECT_NE(chinese, english);
    const auto has = [](const std::string& text, const char* part) { return text.find(part) != std::string::npos; };
    for (const char* placeholder : {"%1", "%2"}) EXPECT_EQ(has(chinese, placeholder), has(english, placeholder));
    EXPECT_EQ(has(chinese, "(&"), has(english, "&")) << english;
  }
}

TEST_F(DesktopTest, UndoAndRedoBringTheCaretAlong) {
  struct Case {
    int anchor;
    int position;
    Qt::Key key;
    int after;  ///< place of the caret after the edit
  };
  const Case cases[] = {
      {4, 4, Qt::Key_X, 5},      {4, 4, Qt::Key_Delete, 4}, {4, 4, Qt::Key_Backspace, 3},  {2, 6, Qt::Key_X, 3},
      {6, 2, Qt::Key_Delete, 2}, {4, 4, Qt::Key_Return, 5}, {13, 2, Qt::Key_Backspace, 2},
  };
  folder.Write("caret.bas", "one two three\r\nfour five\r\n");
  Start();
  Open("caret.bas");
  CodeEdit& editor = EditorOf(u"caret");
  const auto caret = [&] { return std::pair(editor.textCursor().anchor(), editor.textCursor().position()); };
  for (const Case& row : cases) {
    editor.Select(row.anchor, row.position);
    QTest::keyClick(&editor, row.key);
    EXPECT_EQ(caret(), std::pair(row.after, row.after)) << row.key;
    editor.moveCursor(QTextCursor::End);
    editor.Undo();
    EXPECT_EQ(caret(), std::pair(row.anchor, row.position)) << row.key;
    editor.moveCursor(QTextCursor::End);
    editor.Redo();
    EXPECT_EQ(caret(), std::pair(row.after, row.after)) << row.key;
    editor.Undo();
  }
}

TEST_F(DesktopTest, OneIsNotMany) {
  EXPECT_EQ(Texts{1}.Counted(Text::StatusSelected, 1).toStdString(), "1 character selected");
  EXPECT_EQ(Texts{1}.Counted(Text::StatusSelected, 2).toStdString(), "2 characters selected");
  EXPECT_EQ(Texts{0}.Counted(Text::StatusSelected, 1), Texts{0}(Text::StatusSelected).arg(1));
}

TEST_F(DesktopTest, ButtonsOfBoxesFollowTheLanguage) {
  Start();
  const auto save = [] { return QMessageBox(QMessageBox::Question, {}, {}, QMessageBox::Save).buttons()[0]->text(); };
  EXPECT_EQ(save().left(2), QStringLiteral("\u4FDD\u5B58"));
  Window().SetLanguage(1);
  EXPECT_TRUE(save().contains(QStringLiteral("Save"))) << save().toStdString();
}

TEST_F(ShopTest, WindowsAreFoundByHandle) {
  CodeEdit& editor = EditorOf(u"modMain");
  QtWindows& windows = desktop->Windows();
  const WindowHandle main = windows.FindWindow(u"wndclass_desked_gsk", u"Shop.vbg - Quorvane");
  EXPECT_EQ(windows.WidgetOf(main), &Window());
  const ScreenRect place = windows.GetWindowRect(main).value();
  EXPECT_EQ(place.Right - place.Left, Window().frameGeometry().width());

  const WindowHandle own = windows.HandleOf(editor);
  EXPECT_EQ(windows.HandleOf(editor), own);
  const auto code = windows.GetParent(own);
  EXPECT_EQ(windows.WidgetOf(code), Window().Code().Current());
  windows.Answer(editor, [](std::uint32_t message, std::int32_t, std::int32_t lParam) {
    return static_cast<std::int32_t>(message) + lParam;
  });
  EXPECT_EQ(windows.SendMessage(own, 425, 0, 7), 432);

  auto* popup = new QWidget(nullptr, Qt::Tool);
  const WindowHandle handle = windows.HandleOf(*popup);
  windows.SetWindowPos(handle, 0, 30, 40, 200, 100, 16);
  windows.ShowWindow(handle, 4);
  EXPECT_TRUE(popup->isVisible());
  windows.SetWindowPos(handle, -1, 0, 0, 0, 0, 19);
  EXPECT_TRUE(popup->isVisible());
  EXPECT_TRUE(popup->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_EQ(popup->size(), QSize(200, 100));
  delete popup;
  EXPECT_EQ(windows.WidgetOf(handle), nullptr);
  EXPECT_FALSE(windows.GetWindowRect(handle));
  windows.ShowWindow(handle, 4);
  EXPECT_EQ(windows.SendMessage(handle, 425, 0, 7), 0);
}

}  // namespace
}  // namespace quorvane::desktop
