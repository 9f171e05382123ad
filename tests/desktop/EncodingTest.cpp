#include <QStatusBar>
#include <QToolButton>

#include "DesktopFixture.h"
#include "desktop/files/FileCommands.h"
#include "workbench/model/Component.h"
#include "workbench/model/Project.h"

namespace quorvane::desktop {
namespace {

/// A comment in Big5: "set the title of the window, then write the data into the file and close it".
constexpr char kBig5[] =
    "' \xB3\x5D\xA9\x77\xB5\xF8\xB5\xA1\xAA\xBA\xBC\xD0\xC3\x44\xA1\x41\xA8\xC3\xB1\x4E\xB8\xEA\xAE\xC6\xBC\x67\xA4\x4A"
    "\xC0\xC9\xAE\xD7\r\n";
constexpr char16_t kTitle[] = u"' \u8A2D\u5B9A\u8996\u7A97\u7684\u6A19\u984C";

class EncodingTest : public DesktopTest {
 protected:
  EncodingTest() {
    folder.Write("t/t.vbp", "Module=M; m.bas\r\nModule=N; n.bas\r\nName=\"T\"\r\n");
    for (const char* name : {"M", "N"}) {
      folder.Write(std::string("t/") + name + ".bas", std::string("Attribute VB_Name = \"") + name + "\"\r\n" + kBig5);
    }
  }
  bool Reads(const std::u16string& module) { return ModuleNamed(module).Lines(1, 1).starts_with(kTitle); }
  std::string Shown() {
    return Window().statusBar()->findChild<QToolButton*>(QStringLiteral("CodePage"))->text().toStdString();
  }
};

TEST_F(EncodingTest, APageThatCannotReadAProjectIsReplacedByALikelyOne) {
  QString told;
  AnswerNext(QMessageBox::Yes, &told);
  Start();
  Window().SetLanguage(1);
  Open("t/t.vbp");
  EXPECT_TRUE(told.contains(QStringLiteral("T")) && told.contains(QStringLiteral("1252"))) << told.toStdString();
  EXPECT_TRUE(Reads(u"M"));
  CodeEdit& editor = EditorOf(u"M");
  EXPECT_TRUE(editor.toPlainText().startsWith(QString::fromUtf16(kTitle)));
  EXPECT_EQ(Shown(), "Code page 950");

  // What is typed is written in that page; a module alone may have another one, and the next run knows both.
  QTest::keyClicks(&editor, QStringLiteral("x"));
  Window().Menu().Find(Text::FileSave)->trigger();
  EXPECT_EQ(folder.Read("t/M.bas"), std::string("Attribute VB_Name = \"M\"\r\nx") + kBig5);
  const EncodingScope n{desktop->Host().Projects()[0], ComponentNamed(u"N")};
  EXPECT_TRUE(Window().Files().Reopen(n, QStringLiteral("1252")));
  EXPECT_FALSE(Reads(u"N"));
  Stop();
  Start();
  Open("t/t.vbp");
  EXPECT_TRUE(ModuleNamed(u"M").Lines(1, 1).starts_with(u"x" + std::u16string(kTitle)));
  EXPECT_FALSE(Reads(u"N"));
  EXPECT_TRUE(Window().Files().Reopen({}, QStringLiteral("950")));
  EXPECT_TRUE(Reads(u"N"));
}

TEST_F(EncodingTest, EditsAreAskedAboutAndAKeptPageIsNotAskedAboutAgain) {
  AnswerNext(QMessageBox::No);
  Start();
  Open("t/t.vbp");
  EXPECT_FALSE(Reads(u"M"));
  const EncodingScope m{desktop->Host().Projects()[0], ComponentNamed(u"M")};
  ModuleNamed(u"M").InsertLines(1, u"typed");
  AnswerNext(QMessageBox::Cancel);
  EXPECT_FALSE(Window().Files().Reopen(m, QStringLiteral("950")));
  EXPECT_EQ(ModuleNamed(u"M").Lines(1, 1), u"typed");
  EXPECT_TRUE(Window().Files().Reopen({m.project, ComponentNamed(u"N")}, QStringLiteral("950"))) << "not edited";
  AnswerNext(QMessageBox::Discard);
  EXPECT_TRUE(Window().Files().Reopen(m, QStringLiteral("950")));
  EXPECT_TRUE(Reads(u"M"));
  Stop();
  Start();
  Open("t/t.vbp");
  EXPECT_TRUE(Reads(u"M"));
}

/// Where the names in the lists are in that page too, all is opened anew, with the windows that were open.
TEST_F(EncodingTest, NamesInTheListsComeAnewWithTheirFiles) {
  folder.Write("t/t.vbp", "Module=M; m.bas\r\nModule=N; \xA4\xA4\xA4\xE5.bas\r\nName=\"T\"\r\n");
  std::filesystem::rename(folder / "t/N.bas", folder / "t/\u4E2D\u6587.bas");
  Start("950");
  Open("t/t.vbp");
  EditorOf(u"M");
  EXPECT_TRUE(Window().Files().Reopen({}, QStringLiteral("1252")));
  EXPECT_EQ(desktop->Host().Projects()[0]->Components().size(), 1U);
  EXPECT_TRUE(Window().Files().Reopen({desktop->Host().Projects()[0], nullptr}, QStringLiteral("950")));
  EXPECT_TRUE(Reads(u"N"));
  ASSERT_NE(Window().Code().Current(), nullptr);
  EXPECT_EQ(Window().Code().Current()->TheComponent()->Name(), u"M");
}

}  // namespace
}  // namespace quorvane::desktop
