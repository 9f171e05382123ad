#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "base/Text.h"
#include "native/codepages/CodePages.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/TempFolder.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/project/Opener.h"

namespace quorvane::workbench {
namespace {

using test::TempFolder;
using test::WorkingDirectory;

/// All that an opening gives, as one text: `*` marks the active project, then type, name, path and count of lines.
std::string Describe(const OpenedGroup& group) {
  std::string text;
  for (const auto& project : group.workbench->Projects()) {
    text += project == group.workbench->ActiveVBProject() ? "*" : "";
    text += ToUtf8(project->Name()) + " " + project->Path() + "\n";
    for (const auto& component : project->Components()) {
      const auto module = component->CodeModule();
      text += "  " + std::to_string(static_cast<int>(component->Type())) + " " + ToUtf8(component->Name()) + " " +
              component->Path() + " " + (module ? std::to_string(module->CountOfLines()) : "-") + "\n";
    }
  }
  for (const std::string& warning : group.warnings) text += "! " + warning + "\n";
  return text;
}

class OpenerTest : public testing::Test {
 protected:
  /// Opens files of the folder with the folder as working directory.
  std::string Open(const std::vector<std::string>& files, const std::string& page = "1252",
                   const OpenChoice& choice = {}) {
    const auto codePage = native::NewCodePage(page);
    const WorkingDirectory here(folder.Path());
    return Describe(OpenFiles(files, *codePage, choice));
  }
  /// Writes the files of a table and holds what their opening gives against it.
  void Expect(const std::string& table, const std::vector<std::string>& files, const std::string& page = "1252",
              const OpenChoice& choice = {}) {
    for (const test::Row& row : test::Rows("workbench/Opener.rows", table + "Files")) {
      folder.Write(row.Bytes(0), row.Bytes(1));
    }
    std::string opened;
    for (const test::Row& row : test::Rows("workbench/Opener.rows", table + "Opened")) opened += row.Bytes(0) + "\n";
    EXPECT_EQ(Open(files, page, choice), opened);
  }
  std::string FailureOf(const std::vector<std::string>& files) {
    return test::Raised([&] { Open(files); }).what();
  }

  TempFolder folder;
};

TEST_F(OpenerTest, OpensEveryKindOfComponentInTheOrderOfTheProjectFile) {
  Expect("Kinds", {"all.vbp"});
}

TEST_F(OpenerTest, WarnsOfWhatIsNotThereAndOpensTheRest) {
  std::filesystem::create_directories(folder.Path() / "g/a/Folder.bas");
  std::filesystem::create_directories(folder.Path() / "g/sub");
  Expect("Missing", {"g/G.vbg"});
}

TEST_F(OpenerTest, EachProjectOpensOnceAndTheFirstStartUpProjectIsActive) {
  Expect("Once", {"two.vbp", "./G.vbg", "H.vbg", "I.vbg", "two.vbp"});
}

TEST_F(OpenerTest, ModuleFilesFormAProjectOfTheirOwn) {
  Expect("Modules",
         {"M.BAS", "project.bak", "./M.BAS", "named.frm", "oracle.frm", "class.txt", "page.old", "plain", "group.bak"});
}

TEST_F(OpenerTest, AFileThatIsNamedMustBeReadable) {
  folder.Write("fine.bas", "");
  EXPECT_EQ(FailureOf({"fine.bas", "gone.bas"}), "gone.bas: No such file or directory");
  EXPECT_EQ(FailureOf({"gone.vbg"}), "gone.vbg: No such file or directory");
  EXPECT_EQ(FailureOf({"gone"}), "gone: No such file or directory");
#ifdef _WIN32
  EXPECT_EQ(FailureOf({"NUL"}), "NUL: not a regular file");
#else
  ASSERT_EQ(std::system(("mkfifo " + folder / "pipe.bas").c_str()), 0);
  EXPECT_EQ(FailureOf({"pipe.bas"}), "pipe.bas: not a regular file");
#endif
}

#ifndef _WIN32  // names are no bytes there
TEST_F(OpenerTest, PathsInTheCodePageOfTheProject) {
  Expect("Page", {"p.vbp"}, "932");
  OpenChoice choice;  // for this project
  choice.pageOf = [](const std::string& project, const std::string&) {
    return project == "p.vbp" ? &native::SharedCodePage("932") : nullptr;
  };
  Expect("Page", {"p.vbp"}, "1252", choice);
}

/// Whoever asks for columns counts in the page of the workbench, whatever that of the file is.
TEST_F(OpenerTest, ColumnsAreThoseOfTheWorkbench) {
  folder.Write("m.bas", "x = \"\xA4\xA4\xA4\xE5\" ' end\r\n");
  const auto page = native::NewCodePage("1252");
  OpenChoice choice;
  choice.pageOf = [](const std::string&, const std::string&) { return &native::SharedCodePage("950"); };
  const auto group = OpenFiles({folder / "m.bas"}, *page, choice);
  const auto component = group.workbench->Projects()[0]->Components()[0];
  EXPECT_EQ(component->TheModule()->Lines(1, 1), u"x = \"\u4E2D\u6587\" ' end");
  vbide::Selection range{1, 1, 1, 30};
  ASSERT_TRUE(component->TheModule()->Find(u"end", range, false, false, false));
  EXPECT_EQ(range.StartColumn, 12);
  component->Reopen(*page);
  EXPECT_EQ(component->TheModule()->Lines(1, 1), u"x = \"\u00A4\u00A4\u00A4\u00E5\" ' end");
}
#endif

#ifndef _WIN32  // no such names can stand side by side
TEST_F(OpenerTest, NamesThatDifferInCaseAlone) {
  Expect("Case", {"p.vbp"});
}
#endif

#ifndef _WIN32  // links take a right that users lack
TEST_F(OpenerTest, PathsAreShownRelativeToTheWorkingDirectory) {
  folder.Write("real/sub/p.vbp", "Module=A; ..\\common\\A.bas\nModule=B; ..\\sub\\B.bas\n");
  folder.Write("real/common/A.bas", "");
  folder.Write("real/sub/B.bas", "");
  std::filesystem::create_directories(folder.Path() / "elsewhere");
  std::filesystem::create_directory_symlink("../real/sub", folder.Path() / "elsewhere/link");
  const auto page = native::NewCodePage("1252");
  const auto open = [&](const std::string& from, const std::string& file) {
    const WorkingDirectory here(folder.Path() / from);
    return Describe(OpenFiles({file}, *page));
  };
  const std::string absolute = folder / "real/sub/p.vbp";
  EXPECT_EQ(open("real/sub", "p.vbp"), "*p p.vbp\n  1 A ../common/A.bas 0\n  1 B B.bas 0\n");
  EXPECT_EQ(open("real/common", absolute), "*p ../sub/p.vbp\n  1 A A.bas 0\n  1 B ../sub/B.bas 0\n");
  // Out of a linked folder, `..` leads to the folder above the real one.
  EXPECT_EQ(open("elsewhere", "link/p.vbp"),
            "*p link/p.vbp\n  1 A ../real/common/A.bas 0\n  1 B ../real/sub/B.bas 0\n");
  EXPECT_EQ(open("elsewhere", "link/../sub/p.vbp"),
            "*p ../real/sub/p.vbp\n  1 A ../real/common/A.bas 0\n  1 B ../real/sub/B.bas 0\n");
  // Files that are named share a folder in several ways.
  const std::string a = folder / "real/common/A.bas";
  for (const std::string& named : {a, std::string("sub/B.bas"), std::string("./sub//B.bas"), std::string("sub/./B.bas"),
                                   std::string("sub/../sub/B.bas")}) {
    const WorkingDirectory here(folder.Path() / "real");
    const std::string shown = named == a ? "common/A.bas" : "sub/B.bas";
    EXPECT_EQ(OpenFiles({named, named}, *page).workbench->Projects()[0]->Components()[0]->Path(), shown) << named;
  }
}
#endif

TEST_F(OpenerTest, ManyFilesKeepTheirOrderAndASharedFileIsReadOnce) {
  std::string list;
  std::string expected = "*p p.vbp\n";
  for (int i = 0; i < 300; ++i) {
    const std::string name = "M" + std::to_string(i * 7919 % 300);
    folder.Write(name + ".bas",
                 "Attribute VB_Name = \"" + name + "\"\n" + std::string(static_cast<std::size_t>(i), '\n'));
    list += "Module=" + name + "; " + name + ".bas\n";
    expected += "  1 " + name + " " + name + ".bas " + std::to_string(i) + "\n";
  }
  folder.Write("p.vbp", list);
  folder.Write("q.vbp", "Module=M; m7.BAS\n");
  const auto page = native::NewCodePage("1252");
  const WorkingDirectory here(folder.Path());
  const OpenedGroup group = OpenFiles({"p.vbp", "q.vbp"}, *page);
  const auto& twin = group.workbench->Projects()[1]->Components()[0];
  EXPECT_EQ(Describe(group),
            expected + "q q.vbp\n  1 M7 M7.bas " + std::to_string(twin->CodeModule()->CountOfLines()) + "\n");
  for (const auto& component : group.workbench->Projects()[0]->Components()) {
    if (component->Name() != twin->Name()) continue;
    EXPECT_EQ(component->TheModule()->Saved(), twin->TheModule()->Saved());
    EXPECT_NE(component->TheModule(), twin->TheModule());
  }
}

TEST_F(OpenerTest, WhatASieveHoldsBackIsReadOnce) {
  for (const char* name : {"a.bas", "b.bas"}) folder.Write(name, "Attribute VB_Name = \"M\"\nEnd\n");
  const auto page = native::NewCodePage("1252");
  const WorkingDirectory here(folder.Path());
  OpenedGroup group = OpenFiles({}, *page);
  OpenChoice choice;
  choice.sieve = std::make_shared<const Sieve>(std::vector<std::string>{"needle"}, false);
  const auto removeFirst = [&](std::size_t begun, std::size_t) {
    if (begun == 1) std::filesystem::remove("a.bas");
    return true;
  };
  EXPECT_TRUE(OpenFilesInto(*group.workbench, {"a.bas", "b.bas"}, removeFirst, choice).empty());
  EXPECT_FALSE(std::filesystem::exists("a.bas"));
  EXPECT_EQ(group.workbench->Projects()[0]->Components().size(), 2U);
}

TEST_F(OpenerTest, AFailureLeavesAWorkbenchAsItWas) {
  folder.Write("a.vbp", "Type=Exe\n");
  folder.Write("b.vbp", "Type=Exe\n");
  const auto page = native::NewCodePage("1252");
  const WorkingDirectory here(folder.Path());
  OpenedGroup group = OpenFiles({"a.vbp"}, *page);
  EXPECT_THROW(OpenFilesInto(*group.workbench, {"b.vbp", "gone.bas"}), Error);
  EXPECT_EQ(Describe(group), "*a a.vbp\n");
  OpenFilesInto(*group.workbench, {"b.vbp", "./a.vbp"});
  EXPECT_EQ(Describe(group), "*a a.vbp\nb b.vbp\n");
}

}  // namespace
}  // namespace quorvane::workbench
