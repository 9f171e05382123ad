#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "cli/Program.h"

namespace quorvane::test {

class CliReplaceTest : public ::testing::Test, protected Program {
 protected:
  CliReplaceTest() { WriteShop(folder); }

  Outcome Replace(std::vector<std::string> args) {
    args.insert(args.begin(), "replace");
    args.push_back("Shop.vbg");
    Outcome outcome = Call(args);
    if (outcome.err.find("Gone.cls") != std::string::npos) outcome.err.erase(0, outcome.err.find('\n') + 1);
    return outcome;
  }

  /// All files of the folder by name, in one text.
  std::string Files() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
      if (entry.is_regular_file()) names.push_back(entry.path().lexically_relative(folder.Path()).string());
    }
    std::sort(names.begin(), names.end());
    std::string text;
    for (const std::string& name : names) text += "== " + name + "\n" + folder.Read(name);
    return text;
  }
};

TEST_F(CliReplaceTest, ShowsADiffAndWritesNothing) {
  const std::string before = Files();
  const Outcome outcome = Replace({"-c", "total", "sum"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "--- App/Main.bas\n+++ App/Main.bas\n@@ -1,8 +1,8 @@\n Attribute VB_Name = \"Main\"\r\n Option Explicit\r\n"
            "-Public total As Long\r\n-Attribute total.VB_VarDescription = \"the sum\"\r\n"
            "+Public sum As Long\r\n+Attribute sum.VB_VarDescription = \"the sum\"\r\n"
            " Sub Sum()\r\n Attribute Sum.VB_Description = \"adds\"\r\n-\ttotal = total + 1 ' Total\r\n"
            "+\tsum = sum + 1 ' Total\r\n End Sub\r\n"
            "--- Lib/Common.bas\n+++ Lib/Common.bas\n@@ -1,3 +1,3 @@\n Attribute VB_Name = \"Common\"\n Dim a\n"
            "-Dim subtotal\n+Dim subsum\n");
  EXPECT_EQ(Files(), before);
}

TEST_F(CliReplaceTest, TheDiffIsWhatAWriteDoes) {
  const std::vector<std::vector<std::string>> edits{
      {"total", "sum"},
      {"(\\w+) = (\\w+)", "$2 := $1"},
      {"\\r\\nEnd", "\\r\\n\\r\\nEnd"},
      {"end$", "END"},  // the line without a line end
      {"-s", "^Dim a", "Dim b"},
      {"-s", "^", "'"},
      {"Property Let P\\(v\\)\\r\\n.*\\r\\nEnd Property\\r\\n", ""},
  };
  const TempFolder fresh;
  std::filesystem::copy(folder.Path(), fresh.Path(), std::filesystem::copy_options::recursive);
  const auto restore = [&] {
    std::filesystem::copy(fresh.Path(), folder.Path(),
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
  };
  const std::string before = Files();
  for (auto args : edits) {
    const std::string pattern = args[args.size() - 2];
    const TempFolder elsewhere;
    args.insert(args.begin(), {"-o", elsewhere / "diff"});
    EXPECT_EQ(Replace(args).status, 0) << pattern;
    EXPECT_EQ(Files(), before) << pattern;
    const Outcome patched = Shell("patch -s -p0 --no-backup-if-mismatch < '" + (elsewhere / "diff") + "'");
    EXPECT_EQ(patched.status, 0) << pattern << ": " << patched.out << patched.err;
    const std::string byPatch = Files();
    EXPECT_NE(byPatch, before) << pattern;
    restore();
    args.erase(args.begin(), args.begin() + 2);
    args.insert(args.begin(), "--write");
    EXPECT_EQ(Replace(args).status, 0) << pattern;
    EXPECT_EQ(Files(), byPatch) << pattern;
    restore();
  }
}

TEST_F(CliReplaceTest, WriteTellsEachFile) {
  const Outcome outcome = Replace({"--write", "-c", "total", "sum"});
  EXPECT_EQ(outcome.out, "App/Main.bas +3 -3\nLib/Common.bas +1 -1\n") << "a file of two projects is saved once";
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(folder.Read("Lib/Common.bas"), "Attribute VB_Name = \"Common\"\nDim a\nDim subsum\n");
  const Outcome again = Replace({"--write", "-c", "total", "sum"});
  EXPECT_EQ(again.status, 1);
  EXPECT_EQ(again.out, "");
}

TEST_F(CliReplaceTest, AreasAndNothingToDo) {
  const std::string before = Files();
  struct Row {
    std::vector<std::string> args;
    std::string out;
  };
  const std::vector<Row> rows{
      {{"-a", "module", "--module", "Main", "total", "x"}, "App/Main.bas +3 -3\n"},
      {{"-a", "procedure", "--module", "Main", "--at", "4", "x", "y"}, "App/Main.bas +1 -1\n"},
      {{"-a", "selection", "--module", "Main", "--select", "4,6,4,9", "x", "z"}, ""},
      {{"-a", "project", "--project", "Lib", "dim", "Public"}, "Lib/Common.bas +2 -2\n"},
      {{"nothing of that", "x"}, ""},
      {{"-c", "Option", "Option"}, ""},  // what changes no text is nothing
  };
  for (const Row& row : rows) {
    std::vector<std::string> args = row.args;
    args.insert(args.begin(), "--write");
    const Outcome outcome = Replace(args);
    EXPECT_EQ(outcome.out, row.out) << args.back();
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, row.out.empty() ? 1 : 0) << args.back();
  }
  EXPECT_NE(Files(), before);
}

TEST_F(CliReplaceTest, EscapesThatVanishAreNamed) {
  struct Row {
    std::vector<std::string> args;
    std::string line;     ///< that comes into the diff
    std::string warning;  ///< its beginning
  };
  const std::vector<Row> rows{
      {{"Option Explicit", "C:\\dir\\xen\\"}, "+C:iren", "quorvane: warning: REPLACEMENT: \\d, \\x, \\: "},
      {{"Option Explicit", "C:\\\\dir"}, "+C:\\dir", ""},
      {{"-s", "Option Explicit", "C:\\dir"}, "+C:\\dir", ""},
  };
  for (const Row& row : rows) {
    const Outcome outcome = Replace(row.args);
    EXPECT_NE(outcome.out.find(row.line + "\r\n"), std::string::npos) << outcome.out;
    EXPECT_EQ(outcome.err.substr(0, row.warning.size()), row.warning);
    EXPECT_EQ(outcome.err.empty(), row.warning.empty()) << outcome.err;
  }
}

TEST_F(CliReplaceTest, ErrorsWriteNothing) {
  const std::string before = Files();
  struct Row {
    std::vector<std::string> args;
    std::string word;
  };
  const std::vector<Row> rows{
      {{"-m", "common", "total", "x"}, "Common/Pattern replace"},
      {{"-m", "pattern", "total", "x"}, "Common/Pattern replace"},
      {{"--language", "zh", "-m", "common", "total", "x"},
       "\xE6\x99\xAE\xE9\x80\x9A/\xE6\xA8\xA1\xE5\xBC\x8F\xE6\x9B\xBF\xE6\x8D\xA2"},
      {{"a(b", "x"}, "offset 3"},
      {{"", "x"}, "PATTERN"},
      {{"-a", "module", "total", "x"}, "--module"},
      {{"total", "\xE6\xBC\xA2"}, "Main.bas"},  // a character that code page 1252 lacks
  };
  for (const Row& row : rows) {
    for (const bool write : {false, true}) {
      std::vector<std::string> args = row.args;
      if (write) args.insert(args.begin(), "--write");
      const Outcome outcome = Replace(args);
      EXPECT_EQ(outcome.status, 2) << row.word << outcome.out;
      EXPECT_EQ(outcome.out, "");
      EXPECT_NE(outcome.err.find(row.word), std::string::npos) << row.word << " in " << outcome.err;
      EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    }
  }
  EXPECT_EQ(Files(), before);
}

TEST_F(CliReplaceTest, ADeclarationThatGoesTakesItsHiddenLinesAndSaysSo) {
  const Outcome outcome = Replace({"--write", "-c", "Public total As Long\\r\\n", ""});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "App/Main.bas +0 -2\n");
  EXPECT_NE(outcome.err.find("Attribute total.VB_VarDescription"), std::string::npos) << outcome.err;
  EXPECT_NE(outcome.err.find("App/Main.bas"), std::string::npos) << outcome.err;
}

}  // namespace quorvane::test
