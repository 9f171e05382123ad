#include <gtest/gtest.h>

#include <cstdlib>

#include "base/Text.h"
#include "native/codepages/CodePages.h"
#include "support/Raised.h"
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
  std::string FailureOf(const std::vector<std::string>& files) {
    return test::Raised([&] { Open(files); }).what();
  }

  TempFolder folder;
};

std::string Form(const std::string& kind, const std::string& name) {
  return "VERSION 5.00\r\nBegin " + kind + " " + name + " \r\n   Begin VB.Label L \r\n   End\r\nEnd\r\n" +
         "Attribute VB_Name = \"" + name + "\"\r\nOption Explicit\r\n";
}

TEST_F(OpenerTest, OpensEveryKindOfComponentInTheOrderOfTheProjectFile) {
  folder.Write("all.vbp",
               "Type=Exe\r\nReference=*\\G{0}#2.0#0#x.tlb#OLE\r\n"
               "  Module = InList ;  Code\\Bare.bas \r\n"
               "Module=Wrong; Code\\Named.bas\r\n"
               "class=C; C.cls\r\nFORM=\"F.frm\"\r\nForm=Mdi.frm\r\nForm=Ms.frm\r\n"
               "UserControl=U.ctl\r\nPropertyPage=P.pag\r\nUserDocument=D.dob\r\nDesigner=Ds.dsr\r\n"
               "RelatedDoc=Notes.TXT\r\nResFile32=\"App.RES\r\n"
               "Startup=\"Sub Main\"\r\nName=\"All\"\r\n"
               "[MS Transaction Server]\r\nModule=No; Code\\Named.bas\r\n");
  folder.Write("Code/Bare.bas", "Sub A()\nEnd Sub\n");
  folder.Write("Code/Named.bas", "Attribute VB_Name = \"Named\"\r\n");
  folder.Write("C.cls", "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1\r\nEND\r\nAttribute VB_Name = \"C\"\r\n'x");
  folder.Write("F.frm", Form("VB.Form", "F"));
  folder.Write("Mdi.frm", Form("VB.MDIForm", "Mdi"));
  folder.Write("Ms.frm", Form("{C62A69F0-16DC-11CE-9E98-00AA00574A4F}", "Ms"));
  folder.Write("U.ctl", Form("VB.UserControl", "U"));
  folder.Write("P.pag", Form("VB.PropertyPage", "P"));
  folder.Write("D.dob", Form("VB.UserDocument", "D"));
  folder.Write("Ds.dsr", Form("{78E93846-85FD-11D0-8487-00A0C90DC8A9}", "Ds"));
  folder.Write("Notes.TXT", "a\r\nb\r\n");
  folder.Write("App.RES", "\x01");
  EXPECT_EQ(Open({"all.vbp"}),
            "*All all.vbp\n"
            "  1 InList Code/Bare.bas 2\n"
            "  1 Named Code/Named.bas 0\n"
            "  2 C C.cls 1\n"
            "  5 F F.frm 1\n"
            "  6 Mdi Mdi.frm 1\n"
            "  3 Ms Ms.frm 1\n"
            "  8 U U.ctl 1\n"
            "  7 P P.pag 1\n"
            "  9 D D.dob 1\n"
            "  11 Ds Ds.dsr 1\n"
            "  10 Notes.TXT Notes.TXT -\n"
            "  4 App.RES App.RES -\n");
}

TEST_F(OpenerTest, WarnsOfWhatIsNotThereAndOpensTheRest) {
  folder.Write("g/G.vbg",
               "VBGROUP 5.0\nProject=a\\A.VBP\nStartupProject=..\\b\\b.vbp\nProject=gone.vbp\nProject=sub\n");
  folder.Write("g/a/a.vbp",
               "Form=Gone.frm\rModule=M; ..\\..\\SHARED\\m.BAS\rModule=X; C:\\x\\y.bas\rModule=S; \\\\srv\\s.bas\r"
               "Module=D; Folder.bas\rModule=M; ..\\..\\shared\\M.bas\rModule=broken\rName=A");
  folder.Write("b/b.vbp", "Module=M; ..\\shared\\M.bas\n");
  folder.Write("shared/M.bas", "Attribute VB_Name = \"M\"\r\n'1\r\n");
  std::filesystem::create_directories(folder.Path() / "g/a/Folder.bas");
  std::filesystem::create_directories(folder.Path() / "g/sub");
  EXPECT_EQ(Open({"g/G.vbg"}),
            "A g/a/a.vbp\n"
            "  1 M shared/M.bas 1\n"
            "*b b/b.vbp\n"
            "  1 M shared/M.bas 1\n"
            "! g/a/a.vbp: Gone.frm: not found\n"
            "! g/a/a.vbp: C:\\x\\y.bas: not found\n"
            "! g/a/a.vbp: \\\\srv\\s.bas: not found\n"
            "! g/a/a.vbp: ..\\..\\shared\\M.bas: listed twice, opened once\n"
            "! g/a/a.vbp: broken: not found\n"
            "! g/G.vbg: gone.vbp: not found\n"
            "! g/G.vbg: sub: Is a directory\n"
            "! g/a/a.vbp: Folder.bas: Is a directory\n");
}

TEST_F(OpenerTest, EachProjectOpensOnceAndTheFirstStartUpProjectIsActive) {
  for (const char* name : {"one", "two", "three"}) folder.Write(std::string(name) + ".vbp", "Type=Exe\n");
  folder.Write("G.vbg", "VBGROUP 5.0\nStartupProject=gone.vbp\nProject=one.vbp\nProject=two.vbp\n");
  folder.Write("H.vbg", "VBGROUP 5.0\nProject=one.vbp\nStartupProject=THREE.vbp\n");
  folder.Write("I.vbg", "VBGROUP 5.0\nStartupProject=one.vbp\n");
  EXPECT_EQ(Open({"two.vbp", "./G.vbg", "H.vbg", "I.vbg", "two.vbp"}),
            "two two.vbp\none one.vbp\n*three three.vbp\n! G.vbg: gone.vbp: not found\n");
}

TEST_F(OpenerTest, ModuleFilesFormAProjectOfTheirOwn) {
  folder.Write("x.vbp", "Name=\"project1\"\n");
  folder.Write("M.BAS", "Attribute VB_Name = \"M\"\n'\n");
  folder.Write("named.frm", Form("VB.MDIForm", "F"));
  folder.Write("oracle.frm", "rem create table\nselect 1;\n");
  folder.Write("class.txt", "VERSION 1.0 CLASS\nBEGIN\nEND\nAttribute VB_Name = \"K\"\n");
  folder.Write("page.old", Form("VB.PropertyPage", "P"));
  folder.Write("plain", "Sub A()\nEnd Sub");
  folder.Write("project.bak", "Type=Exe\nModule=M; m.bas\n");
  folder.Write("group.bak", "VBGROUP 5.0\nProject=x.vbp\n");
  EXPECT_EQ(Open({"M.BAS", "project.bak", "./M.BAS", "named.frm", "oracle.frm", "class.txt", "page.old", "plain",
                  "group.bak"}),
            "*Project2 \n"
            "  1 M M.BAS 1\n"
            "  6 F named.frm 1\n"
            "  5 oracle oracle.frm 2\n"
            "  2 K class.txt 0\n"
            "  7 P page.old 1\n"
            "  1 plain plain 2\n"
            "project project.bak\n"
            "  1 M M.BAS 1\n"
            "project1 x.vbp\n");
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
  const std::string hyou = "\x95\x5C";  // a character whose second byte is a backslash
  const std::string hyouUtf8 = "\xE8\xA1\xA8";
  folder.Write("p.vbp", "Form=" + hyou + "\\" + hyou + ".frm\r\nModule=M; \x82\x60.bas\r\nModule=R; raw\\" + hyou +
                            ".BAS\r\nName=\"" + hyou + "\"\r\n");
  folder.Write(hyouUtf8 + "/" + hyouUtf8 + ".frm",
               "VERSION 5.00\r\nBegin VB.Form F\r\nEnd\r\nAttribute VB_Name = \"" + hyou + "F\"\r\n'" + hyou + "\r\n");
  folder.Write("\xEF\xBD\x81.bas", "");  // the full-width letter in its other case
  folder.Write("raw/" + hyou + ".bas", "");
  const std::string all = "*" + hyouUtf8 + " p.vbp\n" + "  5 " + hyouUtf8 + "F " + hyouUtf8 + "/" + hyouUtf8 +
                          ".frm 1\n" + "  1 M \xEF\xBD\x81.bas 0\n" + "  1 R raw/" + hyou + ".bas 0\n";
  EXPECT_EQ(Open({"p.vbp"}, "932"), all);
  OpenChoice choice;
  choice.pageOf = [](const std::string& project, const std::string&) {
    return project == "p.vbp" ? &native::SharedCodePage("932") : nullptr;
  };
  EXPECT_EQ(Open({"p.vbp"}, "1252", choice), all) << "chosen for this project";
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
  folder.Write("p.vbp",
               "Module=A; SRC\\a.bas\nModule=B; src\\b.bas\nModule=C; Src\\c.bas\nModule=D; SRC\\..\\D.bas\n"
               "Module=E; TWO.bas\n");
  folder.Write("src/A.bas", "");
  folder.Write("Src/B.bas", "");
  folder.Write("Src/C.bas", "'upper");
  folder.Write("Src/c.bas", "");
  folder.Write("src/c.bas", "'other folder");
  folder.Write("d.bas", "");
  folder.Write("two.bas", "");
  folder.Write("Two.bas", "");
  EXPECT_EQ(Open({"p.vbp"}),
            "*p p.vbp\n  1 A src/A.bas 0\n  1 B Src/B.bas 0\n  1 C Src/c.bas 0\n  1 D d.bas 0\n  1 E Two.bas 0\n");
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
