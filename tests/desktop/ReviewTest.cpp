#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QLabel>
#include <QListView>
#include <QProcess>
#include <QTest>
#include <chrono>
#include <filesystem>
#include <random>
#include <string>

#include "DesktopFixture.h"
#include "base/Text.h"
#include "desktop/editor/CodeArea.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/CodeWindow.h"
#include "desktop/files/FileCommands.h"
#include "desktop/review/ChangesView.h"
#include "desktop/review/ModuleChanges.h"
#include "desktop/shell/MainWindow.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Pane.h"
#include "workbench/model/Workbench.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::desktop {
namespace {

class ReviewTest : public DesktopTest {
 protected:
  void Show(const std::string& file) {
    Start();
    Window().SetLanguage(1);
    Open(file);
    Window().ChangesDock().show();
  }
  ChangesView& View() { return Window().Changes(); }

  /// The rows as they are read out, one a line.
  std::string Rows() {
    View().Changes().Update();
    std::string rows;
    for (int i = 0; i < View().Rows().rowCount(); ++i) {
      rows += View().Rows().index(i).data(Qt::AccessibleTextRole).toString().toStdString() + "\n";
    }
    return rows;
  }
  void Select(const char* row) {
    for (int i = 0; i < View().Rows().rowCount(); ++i) {
      const QModelIndex index = View().Rows().index(i);
      if (index.data(Qt::AccessibleTextRole).toString() == QLatin1String(row))
        return View().List().setCurrentIndex(index);
    }
    ADD_FAILURE() << "no such row: " << row;
  }
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&View().List(), static_cast<Qt::Key>(key), modifiers);
  }
};

constexpr char kFile[] =
    "Attribute VB_Name = \"m\"\r\nOption Explicit\r\n\r\nPublic Sub A()\r\nAttribute A.VB_Description = \"x\"\r\n"
    "  one\r\n  two\r\n  three\r\nEnd Sub\r\n\r\nPublic Sub B()\r\n  four\r\n  five\r\nEnd Sub\r\n";

TEST_F(ReviewTest, RowsTellWhatWentAndCameAndEachIsRevertedAsOneStep) {
  folder.Write("m.bas", kFile);
  Show("m.bas");
  EXPECT_EQ(Rows(), "");
  workbench::Module& module = ModuleNamed(u"m");
  const std::u16string saved = module.Text();
  module.DeleteLines(3, 1);
  module.InsertLines(3, u"Public Sub A(x)\r\n  zero");
  module.DeleteLines(11, 1);
  const std::u16string edited = module.Text();
  const std::string first =
      "A  \u00B7  line 3\nOption Explicit\n\n- Public Sub A()\n"
      "hidden line behind it: Attribute A.VB_Description = \"x\"\n+ Public Sub A(x)\n+   zero\n  one\n  two\n";
  const std::string second = "B  \u00B7  line 11\n\nPublic Sub B()\n-   four\n  five\nEnd Sub\n";
  EXPECT_EQ(Rows(), "Project1.m +2 -2\n" + first + second);
  EXPECT_EQ(View().Summary().text().toStdString(), "1 module  \u00B7  2 lines");

  Select("Project1.m +2 -2");
  Press(Qt::Key_Left);
  EXPECT_EQ(Rows(), "Project1.m +2 -2\n");
  Press(Qt::Key_Right);
  Select("-   four");
  Press(Qt::Key_Return);
  EXPECT_EQ(EditorOf(u"m").textCursor().blockNumber(), 10);

  Press(Qt::Key_Delete);
  EXPECT_EQ(Rows(), "Project1.m +2 -1\n" + first) << "follows at once";
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(module.Text(), edited);
  EXPECT_EQ(Rows(), "Project1.m +2 -2\n" + first + second);
  Select("Project1.m +2 -2");
  Press(Qt::Key_Delete);
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(module.Text(), saved);
  EXPECT_EQ(module.Compose().bytes, kFile) << "with its hidden line";
  EXPECT_TRUE(module.Undo());
  EXPECT_EQ(module.Text(), edited) << "one step";

  // The key for undo leaves alone what was edited after it.
  Rows();
  Select("Project1.m +2 -2");
  Press(Qt::Key_Delete);
  module.InsertLines(1, u"' mine");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(module.Lines(1, 1), u"' mine");
}

TEST_F(ReviewTest, AClickRevertsAndFollowsTheUserSavingAndHiding) {
  Show("samples/Shop/Shop.vbg");
  EditorOf(u"modMain").insertPlainText(QStringLiteral("' typed\n"));
  ModuleNamed(u"COrder").InsertLines(2, u"' by an add-in");
  EXPECT_TRUE(WaitUntil([&] { return View().Rows().rowCount() > 6; }, std::chrono::seconds(10)));
  const std::string rows = Rows();
  EXPECT_NE(rows.find("+ ' typed"), std::string::npos) << rows;
  EXPECT_NE(rows.find("+ ' by an add-in"), std::string::npos) << rows;

  QListView& list = View().List();
  const QRect head = list.visualRect(View().Rows().index(1));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {head.right() - 20, head.center().y()});
  EXPECT_FALSE(ModuleNamed(u"modMain").Text().starts_with(u"' typed"));
  Window().ChangesDock().hide();
  ModuleNamed(u"COrder").InsertLines(1, u"' unseen");
  Window().ChangesDock().show();
  EXPECT_NE(Rows().find("+ ' unseen"), std::string::npos);
  View().SaveAllWanted.Raise();
  EXPECT_EQ(Rows(), "");
  EXPECT_NE(folder.Read("samples/Shop/App/Classes/COrder.cls").find("' unseen"), std::string::npos);
}

TEST_F(ReviewTest, RandomEditsRevertInAnyOrderAndPatchMakesTheSameFiles) {
  Show("samples/Shop/Shop.vbg");
  const std::vector<std::u16string> names = {u"modMain", u"COrder", u"frmOrder", u"modMoney"};
  for (unsigned seed = 1; seed <= 6; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return static_cast<std::int32_t>(random() % static_cast<unsigned>(limit)); };
    for (const auto& name : names) {
      workbench::Module& module = ModuleNamed(name);
      for (int i = below(12); i > 0; --i) {
        const std::int32_t line = 1 + below(module.CountOfLines());
        if (below(2) == 0) module.DeleteLines(line, 1 + below(std::min(3, module.CountOfLines() - line + 1)));
        if (below(3) > 0) module.InsertLines(std::min(line, module.CountOfLines() + 1), u"  caf\u00E9 " + ToText(i));
      }
    }
    View().Changes().Update();
    std::filesystem::remove_all(folder / "copy");
    std::filesystem::create_directories(folder / "copy");
    std::filesystem::copy(folder / "samples", folder / "copy/samples", std::filesystem::copy_options::recursive);
    if (!View().Changes().Modules().empty()) {
      QString told;
      const Subscription tells = View().Told.Subscribe([&](const QString& line) { told = line; });
      View().WritePatch(folder / "changes.patch");
      QString base = told.section(QStringLiteral(" in "), -1);
      base.replace(QString::fromStdString(folder / "samples"), QString::fromStdString(folder / "copy/samples"));
      QProcess patch;
      patch.setWorkingDirectory(base);
      patch.start(QStringLiteral("patch"), {QStringLiteral("-p0"), QStringLiteral("--binary"), QStringLiteral("-i"),
                                            QString::fromStdString(folder / "changes.patch")});
      ASSERT_TRUE(patch.waitForFinished(20'000)) << told.toStdString();
      EXPECT_EQ(patch.exitCode(), 0) << patch.readAllStandardOutput().toStdString();
    }
    for (const auto& name : names) {
      std::string copy = std::filesystem::absolute(ComponentNamed(name)->Path()).lexically_normal().string();
      copy.replace(copy.find("/samples/"), 1, "/copy/");
      EXPECT_EQ(folder.Read(std::filesystem::path(copy).lexically_relative(folder.Path()).string()),
                ModuleNamed(name).Compose().bytes);
    }
    while (!View().Changes().Modules().empty()) {
      const auto& modules = View().Changes().Modules();
      const auto changes = modules[static_cast<std::size_t>(below(static_cast<int>(modules.size())))];
      const auto hunk = static_cast<std::size_t>(below(static_cast<int>(changes->Hunks().size())));
      ASSERT_TRUE(changes->Revert(hunk, desktop->Host().Turns()));
      EXPECT_FALSE(changes->Revert(0, desktop->Host().Turns())) << "the module has gone on";
      View().Changes().Update();
    }
    for (const auto& name : names) {
      EXPECT_EQ(ModuleNamed(name).Compose().bytes, ModuleNamed(name).Saved()->Bytes()) << ToUtf8(name);
    }
  }
  EditorOf(u"modMain").insertPlainText(QStringLiteral("' a"));
  View().CopyPatch();
  EXPECT_TRUE(QApplication::clipboard()->text().contains(QStringLiteral("\n+' a")));
}

}  // namespace
}  // namespace quorvane::desktop
