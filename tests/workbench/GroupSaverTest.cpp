#include <gtest/gtest.h>

#include "base/Text.h"
#include "native/codepages/CodePages.h"
#include "support/Raised.h"
#include "support/TempFolder.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/project/GroupBuilder.h"
#include "workbench/project/Opener.h"
#include "workbench/save/GroupSaver.h"

namespace quorvane::workbench {
namespace {

using test::TempFolder;
using test::WorkingDirectory;

/// Two projects that both list Shared.bas, each with a module of its own.
class GroupSaverTest : public testing::Test {
 protected:
  GroupSaverTest() {
    folder.Write("a.vbp", "Module=S; Shared.bas\nModule=A; A.bas\nName=PA\n");
    folder.Write("b.vbp", "Module=S; shared.BAS\nModule=B; sub\\B.bas\nName=PB\n");
    folder.Write("Shared.bas", kShared);
    folder.Write("A.bas", "one\r\ntwo\nthree");
    folder.Write("sub/B.bas", "VERSION 1.0 CLASS\nBEGIN\nEND\nAttribute VB_Name = \"B\"\n\xE9\n");
    group = OpenFiles({"a.vbp", "b.vbp"}, *page);
  }

  Component& At(std::size_t project, std::size_t component) {
    return *group.workbench->Projects()[project]->Components()[component];
  }
  void Edit(Component& component, std::int32_t line, std::u16string_view text) {
    component.TheModule()->DeleteLines(line, 1);
    component.TheModule()->InsertLines(line, text);
  }
  std::string Save() {
    std::string told;
    for (const SavedFile& file : SaveGroup(*group.workbench)) {
      told += file.path + " +" + std::to_string(file.added) + " -" + std::to_string(file.removed) + "\n";
      for (const std::string& line : file.droppedHiddenLines) told += "  dropped " + line + "\n";
    }
    return told;
  }
  std::string FailureOfSave() {
    return test::Raised([&] { Save(); }).what();
  }

  static constexpr const char* kShared =
      "Attribute VB_Name = \"S\"\r\nSub Go()\r\nAttribute Go.VB_Description = \"d\"\r\nEnd Sub\r\n' end\r\n";

  TempFolder folder;
  WorkingDirectory here{folder.Path()};
  std::unique_ptr<CodePage> page = native::NewCodePage("1252");
  OpenedGroup group;
};

TEST_F(GroupSaverTest, SavesWhatWasEditedAndNothingTwice) {
  EXPECT_EQ(Save(), "");
  Edit(At(0, 1), 2, u"TWO");
  Edit(At(1, 1), 1, u"\u00E8");
  const auto plan = PlanSave(*group.workbench);
  ASSERT_EQ(plan.size(), 2u);
  EXPECT_EQ(plan[0].before, "one\r\ntwo\nthree");
  EXPECT_EQ(plan[0].after, "one\r\nTWO\nthree");
  EXPECT_EQ(folder.Read("A.bas"), "one\r\ntwo\nthree");
  EXPECT_EQ(Save(), "A.bas +1 -1\nsub/B.bas +1 -1\n");
  EXPECT_EQ(folder.Read("A.bas"), "one\r\nTWO\nthree");
  EXPECT_EQ(folder.Read("sub/B.bas"), "VERSION 1.0 CLASS\nBEGIN\nEND\nAttribute VB_Name = \"B\"\n\xE8\n");
  EXPECT_EQ(Save(), "");
  Edit(At(0, 1), 1, u"ONE");  // the stamp of the saved file is the one to go by now
  EXPECT_EQ(Save(), "A.bas +1 -1\n");
  EXPECT_EQ(folder.Read("A.bas"), "ONE\r\nTWO\nthree");
}

TEST_F(GroupSaverTest, EditsThatLeaveTheTextAsItWasAreNoChange) {
  Edit(At(0, 1), 2, u"other");
  Edit(At(0, 1), 2, u"two");
  EXPECT_TRUE(PlanSave(*group.workbench).empty());
}

TEST_F(GroupSaverTest, AHiddenLineThatGoesIsTold) {
  At(0, 0).TheModule()->DeleteLines(1, 2);
  EXPECT_EQ(Save(), "Shared.bas +0 -3\n  dropped Attribute Go.VB_Description = \"d\"\n");
  EXPECT_EQ(folder.Read("Shared.bas"), "Attribute VB_Name = \"S\"\r\n' end\r\n");
}

TEST_F(GroupSaverTest, TwinsEditedAlikeAreSavedOnce) {
  Edit(At(0, 0), 1, u"Sub Went()");
  Edit(At(1, 0), 1, u"Sub Went()");
  EXPECT_EQ(Save(), "Shared.bas +2 -2\n");
  EXPECT_EQ(folder.Read("Shared.bas"),
            "Attribute VB_Name = \"S\"\r\nSub Went()\r\nAttribute Went.VB_Description = \"d\"\r\nEnd Sub\r\n' end\r\n");
  EXPECT_EQ(Save(), "");
}

TEST_F(GroupSaverTest, TwinsEditedDifferentlyAreAConflict) {
  Edit(At(0, 0), 3, u"' mine");
  Edit(At(1, 0), 3, u"' yours");
  Edit(At(0, 1), 1, u"ONE");
  EXPECT_EQ(FailureOfSave(), "Shared.bas: PA.S and PB.S show this file and were edited differently");
  EXPECT_EQ(folder.Read("Shared.bas"), kShared);
  EXPECT_EQ(folder.Read("A.bas"), "one\r\ntwo\nthree");
  At(1, 0).TheModule()->Undo();
  EXPECT_EQ(Save(), "Shared.bas +1 -1\nA.bas +1 -1\n");
}

TEST_F(GroupSaverTest, AnUneditedTwinTakesOverWhatWasSaved) {
  At(0, 0).TheModule()->InsertLines(3, u"' a\r\n");
  EXPECT_EQ(Save(), "Shared.bas +2 -0\n");
  Module& twin = *At(1, 0).TheModule();
  EXPECT_EQ(twin.Text(), u"Sub Go()\r\nEnd Sub\r\n' a\r\n\r\n' end");
  EXPECT_FALSE(twin.Modified());
  Edit(At(1, 0), 5, u"' END");  // nothing of the other's work is lost by a save of the twin
  EXPECT_EQ(Save(), "Shared.bas +1 -1\n");
  EXPECT_EQ(folder.Read("Shared.bas"),
            "Attribute VB_Name = \"S\"\r\nSub Go()\r\nAttribute Go.VB_Description = \"d\"\r\nEnd Sub\r\n' a\r\n\r\n' "
            "END\r\n");
  EXPECT_EQ(At(0, 0).TheModule()->Text(), twin.Text());
}

#ifndef _WIN32  // links take a right that users lack
TEST_F(GroupSaverTest, NamesOfOneFile) {
  std::filesystem::create_symlink("A.bas", folder.Path() / "Link.bas");
  std::filesystem::create_hard_link(folder.Path() / "A.bas", folder.Path() / "Hard.bas");
  group = OpenFiles({"A.bas", "Link.bas", "Hard.bas"}, *page);
  Edit(At(0, 0), 1, u"1");
  Edit(At(0, 2), 1, u"2");
  EXPECT_EQ(FailureOfSave(), "Hard.bas: Project1.A and Project1.Hard show this file and were edited differently");
  At(0, 2).TheModule()->Undo();
  EXPECT_EQ(Save(), "A.bas +1 -1\n");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "Link.bas"));
  EXPECT_EQ(At(0, 1).TheModule()->Text(), u"1\r\ntwo\r\nthree");
  // A hard link keeps its bytes, and its component the text that shows them.
  EXPECT_EQ(At(0, 2).TheModule()->Text(), u"one\r\ntwo\r\nthree");
  EXPECT_EQ(folder.Read("Hard.bas"), "one\r\ntwo\nthree");
  Edit(At(0, 2), 1, u"2");
  EXPECT_EQ(Save(), "Hard.bas +1 -1\n");
  EXPECT_EQ(folder.Read("A.bas"), "1\r\ntwo\nthree");
}
#endif

TEST_F(GroupSaverTest, RefusalsNameTheFileAndWriteNothing) {
  Edit(At(0, 0), 3, u"' fine");
  Edit(At(1, 1), 1, u"\u8868");
  const std::string lacking = FailureOfSave();
  EXPECT_TRUE(lacking.starts_with("sub/B.bas: ")) << lacking;
  At(1, 1).TheModule()->Undo();
  Edit(At(0, 1), 1, u"ONE");
  folder.Write("A.bas", "somebody else\n");
  EXPECT_NE(FailureOfSave().find("A.bas"), std::string::npos);
  EXPECT_EQ(folder.Read("Shared.bas"), kShared);
  EXPECT_EQ(folder.Read("A.bas"), "somebody else\n");
  const auto built = Group{}.Project(u"P").Module(u"M", u"x").Build(*page);
  built->Projects()[0]->Components()[0]->TheModule()->InsertLines(1, u"y");
  EXPECT_THROW(SaveGroup(*built), Error);
}

}  // namespace
}  // namespace quorvane::workbench
