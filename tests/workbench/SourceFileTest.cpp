#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "workbench/text/Sieve.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::workbench {
namespace {

/// The lines of any bytes with their line ends, the plain way.
std::vector<std::string> SplitPlainly(const std::string& bytes) {
  std::vector<std::string> lines;
  std::string line;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    line += bytes[i];
    if (bytes[i] != '\n' && (bytes[i] != '\r' || (i + 1 < bytes.size() && bytes[i + 1] == '\n'))) continue;
    lines.push_back(std::exchange(line, ""));
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

/// Code lines joined by `|`, then hidden lines as {after:text}, then the name of the component.
std::string Describe(const SourceFile& file) {
  std::string text;
  for (std::size_t i = 0; i < file.Lines().size(); ++i) text += (i > 0 ? "|" : "") + std::string(file.LineBytes(i));
  for (const SourceFile::HiddenLine& hidden : file.Hidden()) {
    std::string line = file.Bytes().substr(hidden.begin, hidden.end - hidden.begin);
    line.erase(line.find_last_not_of("\r\n") + 1);
    text += " {" + std::to_string(hidden.after) + ":" + line + "}";
  }
  return text + (file.Name().empty() ? "" : " <" + file.Name() + ">");
}

/// Header, lines and hidden lines in their order are the file again, and each line stands where FileLine says.
void ExpectWhole(const SourceFile& file) {
  std::string rebuilt = file.Bytes().substr(0, file.CodeBegin());
  auto hidden = file.Hidden().begin();
  const auto takeHidden = [&](std::size_t after) {
    for (; hidden != file.Hidden().end() && static_cast<std::size_t>(hidden->after) == after; ++hidden)
      rebuilt += file.Bytes().substr(hidden->begin, hidden->end - hidden->begin);
  };
  const std::vector<std::string> physical = SplitPlainly(file.Bytes());
  takeHidden(0);
  for (std::size_t i = 0; i < file.Lines().size(); ++i) {
    const std::string line = std::string(file.LineBytes(i)) + std::string(file.LineEnd(i));
    rebuilt += line;
    takeHidden(i + 1);
    const auto at = static_cast<std::size_t>(file.FileLine(static_cast<std::int32_t>(i) + 1));
    EXPECT_EQ(file.CodeLine(static_cast<std::int32_t>(at)), static_cast<std::int32_t>(i) + 1);
    ASSERT_TRUE(at >= 1 && at <= physical.size()) << at;
    EXPECT_TRUE(physical[at - 1].ends_with(line)) << physical[at - 1] << " / " << line;
  }
  EXPECT_EQ(rebuilt, file.Bytes());
  std::size_t code = 0;
  for (std::size_t i = 0; i <= physical.size() + 1; ++i) code += file.CodeLine(static_cast<std::int32_t>(i)) != 0;
  EXPECT_EQ(code, file.Lines().size());
}

/// What a file tells before its lines are cut is what the lines then say.
void ExpectKnownBeforehand(const std::string& bytes) {
  const SourceFile cut(bytes);
  const std::vector<SourceFile::Line>& lines = cut.Lines();
  ASSERT_EQ(cut.CountOfLines(), static_cast<std::int32_t>(lines.size()));
  if (lines.empty()) return;
  const SourceFile whole(bytes);
  EXPECT_EQ(whole.LineAt(0), lines.front());
  EXPECT_EQ(whole.LineAt(lines.size() - 1), lines.back());
  EXPECT_EQ(whole.LineAt(lines.size() / 2), lines[lines.size() / 2]);
  EXPECT_EQ(whole.LineAt(lines.size() - 1), lines.back());
}

struct Case {
  const char* what;
  std::string bytes;
  std::string expected;
};

class SourceFileTest : public testing::TestWithParam<Case> {};

TEST_P(SourceFileTest, ShowsCodeAlone) {
  const SourceFile file(GetParam().bytes);
  EXPECT_EQ(Describe(file), GetParam().expected);
  ExpectWhole(file);
  ExpectKnownBeforehand(GetParam().bytes);
}

using namespace std::string_literals;

const std::string kClass = "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n";
const std::string kForm =
    "VERSION 5.00\r\nObject = \"{F9}#2.0#0\"; \"A.OCX\"\r\nBegin VB.Form F \r\n   BeginProperty Font \r\n"
    "      Name = \"End\"\r\n   EndProperty\r\n   Begin VB.Timer T \r\n   End\r\nEnd\r\n";

INSTANTIATE_TEST_SUITE_P(Lines, SourceFileTest,
                         testing::Values(Case{"empty", "", ""}, Case{"final line end", "A\nB\n", "A|B"},
                                         Case{"no final line end", "A\r\nB", "A|B"},
                                         Case{"lone CR", "A\rB\r\rC\r", "A|B||C"},
                                         Case{"mixed", "A\r\n\r\n\n\rB\n\r\n", "A||||B|"},
                                         Case{"NUL at the end", "A\r\n\0\0"s, "A|\0\0"s},
                                         Case{"one line end", "\r\n", ""}));

INSTANTIATE_TEST_SUITE_P(
    Header, SourceFileTest,
    testing::Values(
        Case{"standard module", "Attribute VB_Name = \"M\"\r\nDim a\r\n", "Dim a <M>"},
        Case{"class", kClass + "Attribute VB_Name = \"C\"\r\nAttribute VB_Exposed = False\r\n\r\nDim a", "|Dim a <C>"},
        Case{"form", kForm + "Attribute VB_Name = \"F\"\r\nBegin x", "Begin x <F>"}, Case{"header alone", kForm, ""},
        Case{"no attributes", kClass + "\r\nEnd", "|End"},
        Case{"a blank line before the attributes", kForm + "\r\nAttribute VB_Name = \"F\"\r\nx", "x <F>"},
        Case{"small letters, LF", "version 1.0 class\nbegin\nend\nattribute vb_name=\"c\"\nx\n", "x <c>"},
        Case{"lone CR", "VERSION 5.00\rBegin VB.Form F\rEnd\rAttribute VB_Name = \"F\"\rx\r", "x <F>"},
        Case{"byte order mark", "\xEF\xBB\xBF" + kClass + "x", "x"},
        Case{"byte order mark alone", "\xEF\xBB\xBFx", "x"},
        Case{"block without end, attributes", "VERSION 5.00\nBegin VB.Form F\n a = 1\nAttribute VB_Name = \"F\"\nx",
             "x <F>"},
        Case{"block without end", "VERSION 5.00\nBegin VB.Form F\n a = 1\n", "VERSION 5.00|Begin VB.Form F| a = 1"},
        Case{"something else", "create table t (\n begin int\n);\n", "create table t (| begin int|);"},
        Case{"a word only", "VERSION 5.00\nselect 1;\nBegin x\nEnd\n", "VERSION 5.00|select 1;|Begin x|End"},
        Case{"code above", "x\n" + kClass, "x|VERSION 1.0 CLASS|BEGIN|  MultiUse = -1  'True|END"}));

INSTANTIATE_TEST_SUITE_P(
    Hidden, SourceFileTest,
    testing::Values(
        Case{"behind a header", "Sub A()\r\nAttribute A.VB_UserMemId = 0\r\nEnd Sub\r\n",
             "Sub A()|End Sub {1:Attribute A.VB_UserMemId = 0}"},
        Case{"several, above the first too",
             "Attribute A.VB_X = 1\nDim A\nATTRIBUTE A.VB_Y.Z=2\n\tattribute\tA . B = 3\nAttribute [a b].VB_Z = 4",
             "Dim A|\tattribute\tA . B = 3 {0:Attribute A.VB_X = 1} {1:ATTRIBUTE A.VB_Y.Z=2} {2:Attribute [a b].VB_Z = "
             "4}"},
        Case{"code",
             "Attribute = 3\nattribute foo\nAttributes A.B = 1\nAttribute.B = 2\nAttribute 'x = 1\nx = Attribute",
             "Attribute = 3|attribute foo|Attributes A.B = 1|Attribute.B = 2|Attribute 'x = 1|x = Attribute"},
        Case{"continued", "' a _\nAttribute A.VB_X = 1\nb_\nAttribute A.VB_X = 2\n",
             "' a _|Attribute A.VB_X = 1|b_ {3:Attribute A.VB_X = 2}"},
        Case{"second byte like a backslash", "Attribute \x95\x5C.VB_X = 1\n", " {0:Attribute \x95\x5C.VB_X = 1}"},
        Case{"name in the code", "'\nAttribute VB_Name = \"M\"\n", "' {1:Attribute VB_Name = \"M\"} <M>"}));

TEST(SourceFile, CutsAnyBytes) {
  static const std::vector<std::string> kPieces = {
      "\r", "\n", "\r\n", "x", " _", "Attribute A.B = 1", "' attribute", std::string(61, 'y'), std::string(1, '\0')};
  for (unsigned seed = 0; seed < 400; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::string bytes;
    for (auto n = random() % 60; n > 0; --n) bytes += kPieces[random() % kPieces.size()];
    const SourceFile file("x\n" + bytes);
    ExpectWhole(file);
    ExpectKnownBeforehand("x\n" + bytes);
    ExpectKnownBeforehand(bytes);
    EXPECT_EQ(file.Lines().size() + file.Hidden().size(), SplitPlainly(file.Bytes()).size());
  }
}

/// Line ends are counted block by block; these lie on both sides of every border.
TEST(SourceFile, CountsTheLinesOfLongFiles) {
  for (const std::string lineEnd : {"\n", "\r", "\r\n", "\n\r"}) {
    for (std::size_t before = 0; before < 130; ++before) {
      std::string bytes(before, 'x');
      const std::size_t ends = lineEnd == "\n\r" ? 2 : 1;
      for (int i = 0; i < 300; ++i) bytes += lineEnd + "y";
      EXPECT_EQ(SourceFile(bytes).CountOfLines(), 300 * static_cast<int>(ends) + 1) << before;
    }
    std::string longer;
    for (int i = 0; i < 60000; ++i) longer += lineEnd;
    ExpectKnownBeforehand(longer);
    ExpectKnownBeforehand(longer + "x");
  }
}

/// A file that a sieve keeps out is the same file to whoever looks at it, and is read again only then.
TEST(SourceFile, KeptOutByASieve) {
  const struct {
    const char* title;
    std::string bytes;
    bool keptOut;
  } rows[] = {
      {"no hit", "Attribute VB_Name = \"M\"\r\nOption Explicit\r\nx = 1\r\n", true},
      {"hit in the code, other case", "Attribute VB_Name = \"M\"\r\nNEEDle\r\n", false},
      {"no name in the header", "x = 1\r\nAttribute VB_Name = \"M\"\r\n", false},
      {"no line of code", "Attribute VB_Name = \"M\"\r\n\r\nAttribute a.VB_b = 1\r\n", true},
      {"nothing but the header", "Attribute VB_Name = \"M\"\r\n", false},
      {"hidden lines first", "Attribute VB_Name = \"M\"\r\nAttribute VB_x = \"y\"\r\nAttribute a.VB_b = 1\r\nz = 2\r\n",
       false},
      {"a last line too long for a column", "Attribute VB_Name = \"M\"\r\n" + std::string(20000, 'x') + "\r\n", false},
  };
  const auto sieve = std::make_shared<const Sieve>(std::vector<std::string>{"Needle", "other"}, false);
  for (const auto& row : rows) {
    int again = 0;
    const SourceFile file(std::string_view(row.bytes), sieve, [&] {
      ++again;
      return row.bytes;
    });
    EXPECT_EQ(file.Lacks(*sieve), row.keptOut) << row.title;
    EXPECT_EQ(file.Lacks(Sieve({"%"}, false)), SourceFile(row.bytes).CountOfLines() > 0 && row.bytes.size() < 20000)
        << row.title;
    EXPECT_EQ(again, row.keptOut) << row.title;
    EXPECT_EQ(Describe(file), Describe(SourceFile(row.bytes))) << row.title;
    EXPECT_EQ(file.CountOfLines(), SourceFile(row.bytes).CountOfLines()) << row.title;
    ExpectWhole(file);
    EXPECT_EQ(again, row.keptOut) << row.title;
  }
}

}  // namespace
}  // namespace quorvane::workbench
