#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDialog>
#include <QFileDialog>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QToolButton>

#include "DesktopFixture.h"
#include "desktop/files/ClashBar.h"
#include "desktop/files/DifferenceBox.h"
#include "desktop/files/FileCommands.h"
#include "desktop/files/ThreeWay.h"
#include "desktop/files/ThreeWayBox.h"
#include "native/files/NewFile.h"
#include "support/Rows.h"
#include "workbench/model/Component.h"
#include "workbench/save/FileSaver.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;

constexpr char kMain[] = "samples/Shop/App/modMain.bas";

class DiskChangesTest : public DesktopTest {
 protected:
  DiskChangesTest() {
    Start();
    Open("samples/Shop/Shop.vbg");
  }
};

TEST(ThreeWay, LaysTheTextsSideBySide) {
  for (const test::Row& row : test::Rows("desktop/ThreeWay.rows", "ThreeWay")) {
    const std::u16string cells[] = {row.Text(0), row.Text(1), row.Text(2)};
    std::string shown;
    for (const ThreeWayRow& line : AlignThree(Split(cells[0], u"|"), Split(cells[1], u"|"), Split(cells[2], u"|"))) {
      const auto number = [](std::int32_t index) { return index < 0 ? std::string("-") : std::to_string(index); };
      shown += (shown.empty() ? "" : "|") + number(line.opened) + " " + number(line.mine) + " " + number(line.theirs);
      if (line.mineDiffers || line.theirsDiffers) shown += " ";
      shown += std::string(line.mineDiffers ? "M" : "") + (line.theirsDiffers ? "T" : "");
    }
    EXPECT_EQ(shown, row.Bytes(3)) << row.Where();
  }
}

TEST_F(DiskChangesTest, ReloadsWhatChangedOnDisk) {
  CodeEdit& editor = EditorOf(u"modMain");
  const std::string before = folder.Read(kMain);
  const auto change = [&](const std::string& line) {
    std::string bytes = before;
    bytes.insert(bytes.find("Option Explicit"), line + "\r\n");
    folder.Write(kMain, bytes);
    return bytes;
  };
  QApplication::setActiveWindow(&Window());
  change("' from outside");
  EXPECT_TRUE(WaitUntil([&] { return ToUtf8(ModuleNamed(u"modMain").Lines(1, 1)) == "' from outside"; }, 5s));
  EXPECT_FALSE(ModuleNamed(u"modMain").Modified());

  QTest::keyClicks(&editor, QStringLiteral("'"));
  EXPECT_TRUE(Window().Files().Save(*ComponentNamed(u"modMain")));

  // With edits of one's own a bar asks; the edits come back by undo.
  editor.GoToLine(1);
  QTest::keyClicks(&editor, QStringLiteral("mine"));
  EXPECT_FALSE(Window().Clash().isVisible());
  change("' again, longer");
  Window().Files().CheckDisk();
  EXPECT_TRUE(Window().Clash().isVisible());
  EXPECT_EQ(ToUtf8(ModuleNamed(u"modMain").Lines(1, 1)).substr(0, 4), "mine");
  Window().Clash().ReloadButton().click();
  EXPECT_FALSE(Window().Clash().isVisible());
  EXPECT_EQ(ToUtf8(ModuleNamed(u"modMain").Lines(1, 1)), "' again, longer");
  EXPECT_FALSE(ModuleNamed(u"modMain").Modified());
  editor.Undo();
  EXPECT_EQ(ToUtf8(ModuleNamed(u"modMain").Lines(1, 1)).substr(0, 4), "mine");

  const std::string outside = change("' a third time, and longer");
  Window().Files().CheckDisk();
  // Three ways: as opened, mine, on disk; row by row.
  QString shown;
  QTimer reader;
  QObject::connect(&reader, &QTimer::timeout, &reader, [&] {
    auto* box = dynamic_cast<ThreeWayBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    for (const QPlainTextEdit* pane : box->Panes()) shown += pane->document()->firstBlock().text() + QLatin1Char('|');
    reader.stop();
    box->reject();
  });
  reader.start(5);
  Window().Clash().CompareButton().click();
  EXPECT_TRUE(shown.startsWith(QStringLiteral("' again, longer|mine"))) << shown.toStdString();
  EXPECT_TRUE(shown.contains(QStringLiteral("|' a third time, and longer|"))) << shown.toStdString();
  EXPECT_TRUE(Window().Clash().isVisible()) << "not settled by looking";
  Window().Clash().KeepButton().click();
  EXPECT_FALSE(Window().Clash().isVisible());
  EXPECT_EQ(ToUtf8(ModuleNamed(u"modMain").Lines(1, 1)).substr(0, 4), "mine");
  Window().Files().CheckDisk();  // answered once and for all
  EXPECT_FALSE(Window().Clash().isVisible());
  EXPECT_EQ(folder.Read(kMain), outside);
  Window().Menu().Find(Text::FileSave)->trigger();
  EXPECT_NE(folder.Read(kMain).find("mine"), std::string::npos);
}

TEST_F(DiskChangesTest, AHalfSaveIsSettledAndNothingIsWrittenElsewhereUnasked) {
  const std::vector<workbench::FileToSave> files = {
      {folder / kMain, "new", native::FileStamp::Of(folder / kMain).value()},
      {folder / "samples/Shop/App/frmDesk.frm", "new",
       native::FileStamp::Of(folder / "samples/Shop/App/frmDesk.frm").value()}};
  const std::string before = folder.Read(kMain);
  for (const auto& [button, main] : {std::pair(QMessageBox::Discard, before), std::pair(QMessageBox::Save, before)}) {
    const pid_t child = fork();
    if (child == 0) {
      workbench::SaveFiles(files, [](const char* from, const char* to) {
        if (std::string(to).ends_with("frmDesk.frm")) raise(SIGKILL);
        return native::MoveOver(from, to);
      });
    }
    waitpid(child, nullptr, 0);
    QString question;
    AnswerNext(button, &question);
    Open("samples/Shop/Shop.vbg");
    EXPECT_TRUE(question.contains(QStringLiteral("modMain.bas"))) << question.toStdString();
    EXPECT_EQ(folder.Read(kMain), button == QMessageBox::Save ? "new" : main);
  }
  EXPECT_EQ(folder.Read("samples/Shop/App/frmDesk.frm"), "new");

  const std::string far = folder.Write("far/Far.bas", "Attribute VB_Name = \"Far\"\r\n");
  folder.Write("P/P.vbp", "Type=Exe\r\nName=\"P\"\r\nModule=Far; " + far + "\r\n");
  Open("P/P.vbp");
  QTest::keyClicks(&EditorOf(u"Far"), QStringLiteral("'"));
  QString question;
  AnswerNext(QMessageBox::Cancel, &question);
  EXPECT_FALSE(Window().Files().SaveAll());
  EXPECT_TRUE(question.contains(QStringLiteral("Far.bas"))) << question.toStdString();
  AnswerNext(QMessageBox::Save);
  EXPECT_TRUE(Window().Files().Save(*ComponentNamed(u"Far")));
  EXPECT_NE(folder.Read("far/Far.bas").find("'"), std::string::npos);
}

TEST_F(DiskChangesTest, ASaveAsksWhereTheFileIsNotWhatWasRead) {
  CodeEdit& editor = EditorOf(u"modMain");
  const auto component = ComponentNamed(u"modMain");
  const std::string before = folder.Read(kMain);
  QTest::keyClicks(&editor, QStringLiteral("'"));
  folder.Write(kMain, before + "' outside\r\n");
  QString question;
  AnswerNext(QMessageBox::No, &question);
  EXPECT_TRUE(Window().Files().Save(*component));
  EXPECT_TRUE(question.contains(QStringLiteral("modMain.bas"))) << question.toStdString();
  EXPECT_EQ(folder.Read(kMain).size(), before.size() + 1);

  QTest::keyClicks(&editor, QStringLiteral("'"));
  folder.Write(kMain, before + "' outside\r\n");
  AnswerNext(QMessageBox::Yes);
  EXPECT_FALSE(Window().Files().Save(*component)) << "it was loaded instead";
  EXPECT_FALSE(component->TheModule()->Modified());
  EXPECT_EQ(folder.Read(kMain), before + "' outside\r\n");

  // Whoever wants to see first what the difference is, is asked again; nothing is lost by Escape.
  QTest::keyClicks(&editor, QStringLiteral("'"));
  const std::string outside = before + "' again outside\r\n";
  folder.Write(kMain, outside);
  QString difference;
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, &closer, [&] {
    auto* box = dynamic_cast<DifferenceBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    difference = box->findChild<QPlainTextEdit*>()->toPlainText();
    box->reject();
  });
  closer.start(5);
  AnswerNext(QMessageBox::Retry);
  AnswerNext(QMessageBox::Cancel);
  EXPECT_FALSE(Window().Files().Save(*component));
  EXPECT_TRUE(difference.contains(QStringLiteral("-' again outside"))) << difference.toStdString();
  EXPECT_EQ(folder.Read(kMain), outside);
  Window().Files().CheckDisk();
  Window().Clash().ReloadButton().click();

  // A file that is gone is told once, when it goes, and asked about again by each save.
  QApplication::setActiveWindow(&Window());
  question.clear();
  AnswerNext(QMessageBox::No, &question);
  std::filesystem::remove(folder / kMain);
  EXPECT_TRUE(WaitUntil([&] { return question.contains(QStringLiteral("modMain.bas")); }, 5s));
  Window().Files().CheckDisk();
  QTest::keyClicks(&editor, QStringLiteral("'"));
  AnswerNext(QMessageBox::No);
  EXPECT_FALSE(Window().Files().SaveAll());
  EXPECT_FALSE(std::filesystem::exists(folder / kMain));
  AnswerNext(QMessageBox::Yes);
  EXPECT_TRUE(Window().Files().SaveAll());
  EXPECT_EQ(folder.Read(kMain).size(), outside.size() + 1);

  // Or it becomes another file.
  std::filesystem::remove(folder / kMain);
  QObject::connect(&closer, &QTimer::timeout, &closer, [&] {
    auto* asked = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (asked == nullptr) return;
    asked->selectFile(QString::fromStdString(folder / "elsewhere.bas"));
    static_cast<QDialog*>(asked)->accept();
  });
  QTest::keyClicks(&editor, QStringLiteral("'"));
  AnswerNext(QMessageBox::Open);
  EXPECT_FALSE(Window().Files().SaveAll()) << "nothing was left";
  EXPECT_FALSE(component->TheModule()->Modified());
  EXPECT_EQ(folder.Read("elsewhere.bas").size(), outside.size() + 2);
  EXPECT_FALSE(std::filesystem::exists(folder / kMain));
  QTest::keyClicks(&editor, QStringLiteral("'"));
  EXPECT_TRUE(Window().Files().Save(*component));
  EXPECT_EQ(folder.Read("elsewhere.bas").size(), outside.size() + 3);
}

}  // namespace
}  // namespace quorvane::desktop
