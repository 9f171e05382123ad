#include <gtest/gtest.h>

#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTextBlock>
#include <algorithm>

#include "DesktopFixture.h"
#include "desktop/navigate/CodeWord.h"
#include "desktop/navigate/LetterMatch.h"
#include "desktop/navigate/LineAnchor.h"
#include "desktop/navigate/Palette.h"
#include "desktop/navigate/ProcedureBar.h"
#include "desktop/shell/GoMenu.h"
#include "support/Rows.h"
#include "workbench/model/Component.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;

constexpr char kTable[] = "desktop/Navigate.rows";

std::u16string LinesOf(std::u16string cell) {
  for (std::size_t at = 0; (at = cell.find(u'|', at)) != cell.npos; at += 2) cell.replace(at, 1, u"\r\n");
  return cell;
}

class NavigateTest : public DesktopTest {
 protected:
  void StartWithShop() {
    Start();
    Window().SetLanguage(1);
    Open("samples/Shop/Shop.vbg");
  }
  CodeEdit& Editor() { return Window().Code().Current()->Editor(); }
  void Run(Text entry) {
    Window().Menu().Find(entry)->trigger();
    QApplication::processEvents();
  }
  /// Puts the caret into the first place of a text that has | at the caret.
  void PutCaret(CodeEdit& editor, QString text) {
    const qsizetype caret = text.indexOf(QLatin1Char('|'));
    text.remove(caret, 1);
    const QTextCursor found = editor.document()->find(text, 0, QTextDocument::FindCaseSensitively);
    ASSERT_FALSE(found.isNull()) << text.toStdString();
    const int place = found.selectionStart() + static_cast<int>(caret);
    editor.Select(place, place);
    QApplication::processEvents();
  }
  /// Module, line and what is selected in it.
  std::string Place() {
    QApplication::processEvents();
    return ToUtf8(Window().Code().Current()->TheComponent()->Name()) + " " +
           std::to_string(Editor().textCursor().blockNumber() + 1) + " " +
           Editor().textCursor().selectedText().toStdString();
  }
  /// Types into the palette that the entry opens, and chooses the first.
  void Choose(Text entry, const QString& letters) {
    bool came = false;
    QTimer typist;
    QObject::connect(&typist, &QTimer::timeout, &typist, [&] {
      auto* palette = dynamic_cast<Palette*>(QApplication::activeModalWidget());
      if (palette == nullptr) return;
      came = true;
      typist.stop();
      QTest::keyClicks(&palette->Line(), letters);
      QTest::keyClick(&palette->Line(), Qt::Key_Return);
    });
    typist.start(5);
    Run(entry);
    EXPECT_TRUE(came);
  }
};

TEST(LetterMatch, PutsWhatFitsBestFirst) {
  for (const test::Row& row : test::Rows(kTable, "Letters")) {
    SCOPED_TRACE(row.Where());
    int last = 1'000'000;
    for (const std::string& name : row.List(1)) {
      const int mark = LetterMatch(QString::fromStdString(row.Bytes(0)), QString::fromStdString(name));
      EXPECT_GT(mark, 0) << name;
      EXPECT_LT(mark, last) << name;
      last = mark;
    }
  }
  for (const test::Row& row : test::Rows(kTable, "LettersAmiss")) {
    EXPECT_EQ(LetterMatch(QString::fromStdString(row.Bytes(0)), QString::fromStdString(row.Bytes(1))), 0)
        << row.Where();
  }
}

TEST_F(NavigateTest, AnchorStaysWithItsLine) {
  Start();
  folder.Write("m.bas", "Attribute VB_Name = \"m\"\r\n");
  Open("m.bas");
  const auto module = ComponentNamed(u"m")->TheModule();
  for (const test::Row& row : test::Rows(kTable, "Anchors")) {
    module->DeleteLines(1, module->CountOfLines());
    module->InsertLines(1, LinesOf(row.Text(0)));
    LineAnchor anchor(module, row.Number(1));
    module->DeleteLines(1, module->CountOfLines());
    module->InsertLines(1, LinesOf(row.Text(2)));
    EXPECT_EQ(anchor.Line(), row.Number(3)) << row.Where();
  }
}

TEST_F(NavigateTest, DeclarationsAreThoseOfTheNearestThatHasOne) {
  folder.Write("main.bas",
               "Attribute VB_Name = \"main\"\r\nOption Explicit\r\nPrivate Const Limit = 1\r\nPublic Shared As Long\r\n"
               "Sub First(ByVal arg, _\r\n    Optional y)\r\nDim q: Dim k, loc As Long, shp As Shape\r\n' x\r\n"
               "x = Limit\r\ny = Shared\r\nloc = loc + arg\r\nHelper Lone\r\nMean 1\r\nshp.Area = 2\r\nother.Hidden\r\n"
               "Hidden 2\r\nTwo 2\r\nSet shp = New Shape\r\nz = Green\r\nz = colors.Green\r\nEnd Sub\r\n");
  folder.Write("other.bas",
               "Attribute VB_Name = \"other\"\r\nOption Explicit\r\nSub Helper()\r\nEnd Sub\r\n"
               "Public Function [Mean](a)\r\nDim Lone, Limit\r\nEnd Function\r\nPrivate Sub Hidden()\r\nEnd Sub\r\n\r\n"
               "Sub Two()\r\nEnd Sub\r\nEnum colors\r\n  Green = 1\r\n  Blue\r\nEnd Enum\r\n");
  folder.Write("Shape.cls",
               "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1\r\nEND\r\nAttribute VB_Name = \"Shape\"\r\n"
               "Option Explicit\r\nPrivate m\r\nProperty Get Area()\r\nEnd Property\r\nProperty Let Area(x)\r\n"
               "End Property\r\n\r\nSub Two()\r\nEnd Sub\r\n");
  folder.Write("far.bas",
               "Attribute VB_Name = \"far\"\r\nOption Explicit\r\nGlobal Lone\r\nSub Helper()\r\nEnd Sub\r\n");
  folder.Write("one.vbp", "Type=Exe\r\nModule=main; main.bas\r\nModule=other; other.bas\r\nClass=Shape; Shape.cls\r\n");
  folder.Write("two.vbp", "Type=Exe\r\nModule=far; far.bas\r\n");
  folder.Write("all.vbg", "VBGROUP 5.0\r\nStartupProject=one.vbp\r\nProject=two.vbp\r\n");
  Start();
  Open("all.vbg");
  for (const test::Row& row : test::Rows(kTable, "Definitions")) {
    SCOPED_TRACE(row.Where());
    CodeEdit& editor = EditorOf(row.Text(0));
    PutCaret(editor, ToQString(row.Text(1)));
    const QTextCursor caret = editor.textCursor();
    const CodeWord word = CodeWord::At(caret.block().text(), caret.positionInBlock());
    std::string found;
    for (const Definition& one : DefinitionFinder(desktop->Host())
                                     .Find(*Window().Code().Current()->TheComponent(), caret.blockNumber() + 1,
                                           FromQString(word.name), FromQString(word.owner), word.dotted)) {
      found += (found.empty() ? "" : "|") + ToUtf8(one.component->Name()) + " " + std::to_string(one.line);
    }
    EXPECT_EQ(found, row.Bytes(2));
  }
}

TEST_F(NavigateTest, BoxesFollowTheCaretAndLeadToWhatIsChosen) {
  StartWithShop();
  CodeEdit& editor = EditorOf(u"frmOrder");
  ProcedureBar& bar = *Window().Go().Bars().Current();
  const auto shown = [&] {
    bar.Update();
    return bar.Objects().currentText().toStdString() + " | " + bar.Procedures().currentText().toStdString();
  };
  editor.GoToLine(1);
  EXPECT_EQ(shown(), "(General) | (Declarations)");
  PutCaret(editor, QStringLiteral("Sub |Form_Load"));
  EXPECT_EQ(shown(), "Form | Load");
  const int line = editor.textCursor().blockNumber();

  // Lines above move it, and a new procedure comes into its list.
  ModuleNamed(u"frmOrder").InsertLines(1, u"' one\r\n' two");
  editor.Refresh();
  EXPECT_EQ(shown(), "Form | Load");
  ModuleNamed(u"frmOrder").InsertLines(ModuleNamed(u"frmOrder").CountOfLines() + 1, u"Sub Newest()\r\nEnd Sub");
  editor.Refresh();
  bar.Update();
  bar.Objects().setCurrentIndex(0);
  Q_EMIT bar.Objects().activated(0);
  EXPECT_EQ(editor.textCursor().blockNumber(), 0);
  const int newest = bar.Procedures().findText(QStringLiteral("Newest"));
  ASSERT_GT(newest, 0);
  Q_EMIT bar.Procedures().activated(newest);
  EXPECT_EQ(editor.textCursor().block().text(), QStringLiteral("Sub Newest()"));
  Q_EMIT bar.Objects().activated(bar.Objects().findText(QStringLiteral("Form")));
  EXPECT_EQ(editor.textCursor().blockNumber(), line + 2);
  Window().SetLanguage(0);
  editor.GoToLine(1);
  EXPECT_EQ(shown(), "(通用) | (声明)");
}

TEST_F(NavigateTest, JumpsGoBackAndForth) {
  StartWithShop();
  PutCaret(EditorOf(u"frmDesk"), QStringLiteral("Next|OrderNo"));
  const std::string start = Place();
  Run(Text::GoDefinition);
  EXPECT_EQ(Place(), "modMain 30 NextOrderNo");
  Run(Text::GoNextProcedure);
  EXPECT_EQ(Place(), "modMain 39 ") << "below the comment that belongs to it";
  Run(Text::GoNextProcedure);
  Run(Text::GoPreviousProcedure);
  EXPECT_EQ(Place(), "modMain 39 ");
  QTest::keyClick(&Editor(), Qt::Key_Down);
  QTest::keyClick(&Editor(), Qt::Key_Down);
  EXPECT_EQ(Place(), "modMain 41 ");
  Run(Text::GoPreviousProcedure);
  EXPECT_EQ(Place(), "modMain 39 ") << "from inside to its own header";
  Choose(Text::GoProcedure, QStringLiteral("wrlog"));
  EXPECT_EQ(Editor().textCursor().block().text(), QStringLiteral("Private Sub WriteLog(ByVal strLine As String)"));

  ModuleNamed(u"modMain").InsertLines(1, u"' one\r\n' two");
  Run(Text::GoBack);
  EXPECT_EQ(Place(), "modMain 41 ") << "the line has moved meanwhile";
  for (int i = 0; i < 4; ++i) Run(Text::GoBack);
  EXPECT_EQ(Place(), "modMain 32 ");
  Run(Text::GoBack);
  EXPECT_EQ(Place(), start);
  EXPECT_FALSE(Window().Menu().Find(Text::GoBack)->isEnabled());
  Run(Text::GoForward);
  EXPECT_EQ(Place().substr(0, 10), "modMain 32");
}

TEST_F(NavigateTest, BookmarksStayWithTheirLines) {
  StartWithShop();
  const auto mark = [this](const std::u16string& module, const char16_t* text) {
    PutCaret(EditorOf(module), QString::fromUtf16(text));
    Run(Text::GoBookmark);
  };
  mark(u"modMoney", u"|Option");
  mark(u"modMain", u"Public Function |NextOrderNo");
  mark(u"modMain", u"Sub |CloseDay");
  ModuleNamed(u"modMain").InsertLines(1, u"' one");
  Editor().Refresh();
  std::string walk;
  for (int i = 0; i < 3; ++i) {
    Run(Text::GoNextBookmark);
    walk += Place() + "| ";
  }
  EXPECT_EQ(walk, "modMoney 1 | modMain 31 | modMain 60 | ");
  Run(Text::GoPreviousBookmark);
  EXPECT_EQ(Place(), "modMain 31 ");
  Run(Text::GoBookmark);
  Run(Text::GoPreviousBookmark);
  EXPECT_EQ(Place(), "modMoney 1 ");
  Run(Text::GoPreviousBookmark);
  EXPECT_EQ(Place(), "modMain 60 ");
}

TEST_F(NavigateTest, ManyProceduresAreChosenFromAtOnce) {
  std::vector<PaletteRows::Entry> entries;
  for (int i = 0; i < 100'000; ++i) {
    entries.push_back({QStringLiteral("ReadTheOrderOf%1").arg(i), QStringLiteral("P.modMany")});
  }
  PaletteRows rows(std::move(entries));
  EXPECT_EQ(rows.rowCount(), PaletteRows::kMost);
  QElapsedTimer timer;
  timer.start();
  rows.Choose(QStringLiteral("rto99999"));
  RecordProperty("milliseconds", static_cast<int>(timer.elapsed()));
  ASSERT_EQ(rows.Fitting(), 1);
  EXPECT_EQ(rows.index(0).data(Qt::AccessibleTextRole).toString(), QStringLiteral("ReadTheOrderOf99999, P.modMany"));
}

}  // namespace
}  // namespace quorvane::desktop
