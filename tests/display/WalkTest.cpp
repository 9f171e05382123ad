// One long walk with keys and mouse from outside: from the group to the saved files, over everything that looks at a
// replacement, takes it back or does it again.

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTextBlock>
#include <filesystem>

#include "DisplayFixture.h"
#include "desktop/navigate/MatchMarks.h"
#include "desktop/review/ChangesView.h"
#include "workbench/model/Module.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::desktop {
namespace {

constexpr auto kEnter = "Return";
constexpr char kAll[] = "2 modules  \u00B7  3 lines";

class WalkTest : public DisplayTest {
 protected:
  CodeEdit& Editor() { return Window().Code().Current()->Editor(); }
  static QString UndoTitle(MainWindow& window) { return window.TaskEntries().UndoEntry().text(); }
  std::string Matches() { return Window().Matches().Status().text().toStdString(); }
  std::string Summary() { return Window().Changes().Summary().text().toStdString(); }

  void OpenGroupByKeys() {
    Press(QStringLiteral("ctrl+o"));
    Must(Soon([] { return dynamic_cast<QFileDialog*>(QApplication::activeWindow()) != nullptr; }), "the file dialog");
    Type(QString::fromStdString(folder / "samples/Shop/Shop.vbg"));
    Press(kEnter);
    Must(Soon([this] { return Window().windowTitle() == QStringLiteral("Shop.vbg - Quorvane"); }), "the group");
  }

  /// "NextOrderNo" becomes "FollowingNo", in the group, by the dialog's keys.
  void ReplaceAllByKeys() {
    ShowDialogByKey();
    for (const char* keys : {"alt+x", "alt+g", "alt+f", "ctrl+a"}) Press(QString::fromLatin1(keys));
    Type(QStringLiteral("NextOrderNo"));
    Press(QStringLiteral("alt+l"));
    Press(QStringLiteral("ctrl+a"));
    Type(QStringLiteral("FollowingNo"));
    Press(QStringLiteral("alt+a"));
    Answer(QMessageBox::Yes);
    Must(Soon([this] { return ModuleNamed(u"modMain").Modified(); }), "the replacement");
    Press(QStringLiteral("Escape"));
    Must(IsInFront(Main()), "the main window");
  }

  void Answer(QMessageBox::StandardButton button) {
    Must(IsInFront(Box), "the question");
    Click([button] { return On(*dynamic_cast<QMessageBox&>(Box()).button(button)); });
  }

  /// What the patch program makes of the files as they were.
  std::string Patched(const QString& patch, const std::string& file) {
    folder.Write("changes.patch", patch.toStdString());
    QProcess program;
    program.setWorkingDirectory(QString::fromStdString(folder / "before/Shop/App"));
    program.start(QStringLiteral("patch"), {QStringLiteral("-p0"), QStringLiteral("--binary"), QStringLiteral("-i"),
                                            QString::fromStdString(folder / "changes.patch")});
    Must(program.waitForFinished(20'000) && program.exitCode() == 0,
         "the patch: " + program.readAllStandardOutput().toStdString());
    return folder.Read("before/Shop/App/" + file);
  }
};

TEST_F(WalkTest, FromTheGroupOverSearchReplaceAndReviewToTheSavedFiles) {
  StartInEnglish();
  LeaveBoxes();
  const QString name = QStringLiteral("NextOrderNo");
  const std::string saved = folder.Read("samples/Shop/App/modMain.bas");
  QString patch;
  Walk([&] {
    OpenGroupByKeys();
    SearchByKeys(name);
    for (const char* place : {"Match 1 of 3", "Match 2 of 3", "Match 3 of 3"}) {
      Press(QStringLiteral("F4"));
      EXPECT_TRUE(Soon([&] { return Matches() == place && SelectedCode() == name; })) << place;
    }
    Press(QStringLiteral("shift+F4"));
    EXPECT_TRUE(Soon([&] { return Matches() == "Match 2 of 3"; }));

    ReplaceAllByKeys();
    EXPECT_TRUE(Soon([this] { return UndoTitle(Window()).contains(QStringLiteral("(3 lines in 2 modules)")); }))
        << See([this] { return UndoTitle(Window()); }).toStdString();

    Press(QStringLiteral("ctrl+shift+r"));
    EXPECT_TRUE(Soon([this] { return Summary() == kAll; })) << See([this] { return Summary(); });
    EXPECT_TRUE(Soon([this] { return Window().Changes().List().hasFocus(); }));
    Press(QStringLiteral("F7"));
    Press(QStringLiteral("Delete"));
    EXPECT_TRUE(Soon([this] { return Summary() != kAll; })) << "one hunk is put back";
    Press(QStringLiteral("ctrl+z"));
    EXPECT_TRUE(Soon([this] { return Summary() == kAll; })) << "and that taken back";

    Press(QStringLiteral("ctrl+alt+z"));
    EXPECT_TRUE(Soon([this] { return Summary().empty() && !ModuleNamed(u"modMain").Modified(); }));
    EXPECT_TRUE(See([this] { return ModuleNamed(u"frmDesk").Text().find(u"FollowingNo") == std::u16string::npos; }));
    Press(QStringLiteral("ctrl+alt+y"));
    EXPECT_TRUE(Soon([this] { return Summary() == kAll; }));

    Click([this] { return On(*Window().Changes().List().viewport(), {60, 10}); });
    Press(QStringLiteral("ctrl+c"));
    EXPECT_TRUE(Soon([&] {
      patch = QApplication::clipboard()->text();
      return patch.contains(QStringLiteral("+    FollowingNo = mlngOrderNo"));
    }));
    EXPECT_EQ(folder.Read("samples/Shop/App/modMain.bas"), saved) << "nothing is written before the save";
    Press(QStringLiteral("ctrl+shift+s"));
    EXPECT_TRUE(Soon([this] { return Summary().empty() && !ModuleNamed(u"frmDesk").Modified(); }));
  });
  EXPECT_NE(folder.Read("samples/Shop/App/modMain.bas"), saved);
  for (const char* file : {"modMain.bas", "frmDesk.frm"}) {
    std::filesystem::remove_all(folder / "before");
    std::filesystem::copy(QUORVANE_SOURCE_DIR "/samples", folder / "before", std::filesystem::copy_options::recursive);
    EXPECT_EQ(folder.Read("samples/Shop/App/" + std::string(file)), Patched(patch, file));
  }
}

}  // namespace
}  // namespace quorvane::desktop
