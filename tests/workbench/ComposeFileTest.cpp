#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/text/ComposeFile.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::workbench {
namespace {

using Strings = std::vector<std::string>;

/// The lines of `text`, each ended by LF.
Strings LinesOf(std::string_view text) {
  Strings lines;
  while (!text.empty()) {
    const std::size_t feed = text.find('\n');
    lines.emplace_back(text.substr(0, feed));
    text.remove_prefix(std::min(text.size(), feed + 1));
  }
  return lines;
}

ComposedFile Compose(const SourceFile& file, const Strings& canonical, const Strings& lines) {
  return ComposeFile(file, {canonical.begin(), canonical.end()}, {lines.begin(), lines.end()});
}

Strings CodeOf(const SourceFile& file) {
  Strings lines;
  for (std::size_t i = 0; i < file.Lines().size(); ++i) lines.emplace_back(file.LineBytes(i));
  return lines;
}

ComposedFile Compose(const std::string& bytes, const Strings& lines) {
  const SourceFile file(bytes);
  return Compose(file, CodeOf(file), lines);
}

TEST(ComposeFile, LineEndsStayAndSpread) {
  struct Case {
    const char* what;
    std::string file;
    Strings lines;
    std::string result;
  };
  const std::string header = "VERSION 1.0 CLASS\r\nBEGIN\r\nEND\r\nAttribute VB_Name = \"C\"\r\n";
  const std::vector<Case> cases = {
      {"nothing changed", "a\r\nb\nc\rd", {"a", "b", "c", "d"}, "a\r\nb\nc\rd"},
      {"a new line ends as the one it replaces", "a\r\nb\nc\rd", {"a", "B", "C", "d"}, "a\r\nB\nC\rd"},
      {"an inserted line ends as the one before", "a\r\nb\nc\r\n", {"a", "b", "x", "c"}, "a\r\nb\nx\nc\r\n"},
      {"and at the front as the one behind", "a\nb\r\nc\r\n", {"x", "a", "b", "c"}, "x\na\nb\r\nc\r\n"},
      {"the last line stays bare", "a\nb", {"x", "b"}, "x\nb"},
      {"a rewritten last line too", "a\nb", {"a", "x"}, "a\nx"},
      {"lines behind a bare one", "a\r\nb\nc", {"a", "b", "c", "d", "e"}, "a\r\nb\nc\nd\ne"},
      {"a bare line alone", "a", {"a", "b"}, "a\r\nb"},
      {"the bare line deleted", "a\r\nb", {"a"}, "a\r\n"},
      {"an empty last line", "a\nb", {"a", ""}, "a\n\n"},
      {"everything deleted", header + "a\r\nb", {}, header},
      {"into an empty file", "", {"a", "b"}, "a\r\nb\r\n"},
      {"behind a bare header", "Attribute VB_Name = \"M\"", {"a"}, "Attribute VB_Name = \"M\"\r\na"},
      {"behind a byte order mark",
       "\xEF\xBB\xBF"
       "a\nb\n",
       {"x", "b"},
       "\xEF\xBB\xBFx\nb\n"},
      {"CR and LF of two lines stay apart", "a\rb\n", {"a", ""}, "a\r\r\n"},
      {"also when the lines between went", "a\rb\n\nc\n", {"a", "", "c"}, "a\r\r\nc\n"},
      {"also when the CR is new", "a\rb\r\n\nc\n", {"x", "", "c"}, "x\r\n\nc\n"},
      {"bytes that are no text",
       std::string("a\xFF\n\0b\n\0", 7),
       {"a\xFF", std::string("\0", 1)},
       std::string("a\xFF\n\0", 4)},
  };
  for (const Case& c : cases) {
    const std::string result = Compose(c.file, c.lines).bytes;
    EXPECT_EQ(result, c.result) << c.what;
    EXPECT_EQ(CodeOf(SourceFile(result)), c.lines) << c.what;
  }
}

TEST(ComposeFile, LinesThatStayKeepTheSpellingOfTheFile) {
  const SourceFile file(
      "' \xFA\x5C one\r\nDim \xFA\x5C As Long\r\nAttribute \xFA\x5C.VB_VarDescription = \"x\"\r\n' two\r\n");
  const Strings canonical = {"' \xED\x40 one", "Dim \xED\x40 As Long", "' two"};
  EXPECT_EQ(Compose(file, canonical, {"' \xED\x40 one", "Dim \xED\x40 As Long", "' 2"}).bytes,
            "' \xFA\x5C one\r\nDim \xFA\x5C As Long\r\nAttribute \xFA\x5C.VB_VarDescription = \"x\"\r\n' 2\r\n");
  EXPECT_EQ(Compose(file, canonical, {"' \xED\x40 1", "Dim Name As Long", "' two"}).bytes,
            "' \xED\x40 1\r\nDim Name As Long\r\nAttribute Name.VB_VarDescription = \"x\"\r\n' two\r\n");
}

struct HiddenCase {
  const char* what;
  std::string file, code, result;
  Strings dropped;
};

class HiddenLinesFollow : public testing::TestWithParam<HiddenCase> {};

TEST_P(HiddenLinesFollow, TheirDeclaration) {
  const HiddenCase& c = GetParam();
  const ComposedFile composed = Compose(c.file, LinesOf(c.code));
  EXPECT_EQ(composed.bytes, c.result);
  EXPECT_EQ(composed.droppedHiddenLines, c.dropped);
  EXPECT_EQ(CodeOf(SourceFile(composed.bytes)), LinesOf(c.code));
}

const std::string kFoo = "Sub Foo()\nAttribute Foo.VB_UserMemId = 0\nx = 1\nEnd Sub\n";
const std::string kFooLine = "Attribute Foo.VB_UserMemId = 0";

const std::vector<HiddenCase> kHiddenCases = {
    {"parameters",
     kFoo,
     "Sub Foo(a)\nx = 1\nEnd Sub\n",
     "Sub Foo(a)\nAttribute Foo.VB_UserMemId = 0\nx = 1\nEnd Sub\n",
     {}},
    {"a name", kFoo, "Sub Bar()\nx = 1\nEnd Sub\n", "Sub Bar()\nAttribute Bar.VB_UserMemId = 0\nx = 1\nEnd Sub\n", {}},
    {"the case of a name",
     kFoo,
     "Sub fOO()\nx = 1\nEnd Sub\n",
     "Sub fOO()\nAttribute fOO.VB_UserMemId = 0\nx = 1\nEnd Sub\n",
     {}},
    {"a kind",
     kFoo,
     "Function Foo()\nx = 1\nEnd Function\n",
     "Function Foo()\nAttribute Foo.VB_UserMemId = 0\nx = 1\nEnd Function\n",
     {}},
    {"lines around it",
     kFoo,
     "\nSub Foo()\n' new\nEnd Sub\n",
     "\nSub Foo()\nAttribute Foo.VB_UserMemId = 0\n' new\nEnd Sub\n",
     {}},
    {"deleted", kFoo, "x = 1\n", "x = 1\n", {kFooLine}},
    {"commented out", kFoo, "'Sub Foo()\nx = 1\nEnd Sub\n", "'Sub Foo()\nx = 1\nEnd Sub\n", {kFooLine}},
    {"everything deleted", kFoo, "", "", {kFooLine}},
    {"two lines of one member",
     "Sub Foo()\nAttribute Foo.VB_Description = \"Foo.VB_\"\n" + kFooLine + "\nEnd Sub\n",
     "Sub Bar()\nEnd Sub\n",
     "Sub Bar()\nAttribute Bar.VB_Description = \"Foo.VB_\"\nAttribute Bar.VB_UserMemId = 0\nEnd Sub\n",
     {}},
    {"continued header, name changed",
     "Public Sub Foo( _\n  a, _\n  b)\n" + kFooLine + "\nEnd Sub\n",
     "Public Sub Bar( _\n  a, _\n  b)\nEnd Sub\n",
     "Public Sub Bar( _\n  a, _\n  b)\nAttribute Bar.VB_UserMemId = 0\nEnd Sub\n",
     {}},
    {"header continued now",
     kFoo,
     "Sub Foo( _\n  a)\nx = 1\nEnd Sub\n",
     "Sub Foo( _\n  a)\n" + kFooLine + "\nx = 1\nEnd Sub\n",
     {}},
    {"header no longer continued",
     "Sub Foo( _\n  a)\n" + kFooLine + "\nEnd Sub\n",
     "Sub Foo(a)\nEnd Sub\n",
     "Sub Foo(a)\n" + kFooLine + "\nEnd Sub\n",
     {}},
    {"header breaks off at the end of the text",
     "' a\n" + kFoo,
     "' a\nSub Foo( _\n",
     "' a\n" + kFooLine + "\nSub Foo( _\n",
     {}},
    {"accessors of one name",
     "Property Get P()\nAttribute P.VB_UserMemId = 0\nEnd Property\nProperty Let P(v)\nAttribute P.VB_Description = "
     "\"let\"\n"
     "End Property\n",
     "Property Get Q()\nEnd Property\nProperty Let Q(v)\nEnd Property\n",
     "Property Get Q()\nAttribute Q.VB_UserMemId = 0\nEnd Property\n"
     "Property Let Q(v)\nAttribute Q.VB_Description = \"let\"\nEnd Property\n",
     {}},
    {"one of two accessors deleted",
     "Property Get P()\nAttribute P.VB_UserMemId = 0\nEnd Property\nProperty Let P(v)\nEnd Property\n",
     "Property Let P(v)\nEnd Property\n",
     "Property Let P(v)\nEnd Property\n",
     {"Attribute P.VB_UserMemId = 0"}},
    {"a list of variables",
     "Public A As Long, WithEvents B As C\nAttribute A.VB_VarUserMemId = 1\nAttribute B.VB_VarHelpID = -1\n",
     "Public A As Long, WithEvents D As C\n",
     "Public A As Long, WithEvents D As C\nAttribute A.VB_VarUserMemId = 1\nAttribute D.VB_VarHelpID = -1\n",
     {}},
    {"a list cut in two",
     "Public A(1, 2) As Long, B\nAttribute A.VB_VarUserMemId = 1\nAttribute B.VB_VarUserMemId = 2\n",
     "Public A(1, 2) As Long\nPublic B\n",
     "Public A(1, 2) As Long\nAttribute A.VB_VarUserMemId = 1\nPublic B\nAttribute B.VB_VarUserMemId = 2\n",
     {}},
    {"moved by cut and paste",
     kFoo + "Sub Two()\ny = 2\nEnd Sub\n",
     "Sub Two()\ny = 2\nEnd Sub\n\nSub Foo(a)\nz\nEnd Sub\n",
     "Sub Two()\ny = 2\nEnd Sub\n\nSub Foo(a)\n" + kFooLine + "\nz\nEnd Sub\n",
     {}},
    {"a local of the same name is no member",
     "Public Foo\n" + kFooLine + "\nSub S()\nz = 0\nEnd Sub\n",
     "Sub S()\nDim Foo\nz = 0\nEnd Sub\n",
     "Sub S()\nDim Foo\nz = 0\nEnd Sub\n",
     {kFooLine}},
    {"nor is a field, nor a text",
     "Public Foo\n" + kFooLine + "\nType T\nz As Long\nEnd Type\n",
     "Type T\nFoo As Long\nz As Long\nEnd Type\nConst C = \": Dim Foo\" ': Dim Foo\n",
     "Type T\nFoo As Long\nz As Long\nEnd Type\nConst C = \": Dim Foo\" ': Dim Foo\n",
     {kFooLine}},
    {"a neighbour of the same kind keeps its own",
     "Public A\nAttribute A.VB_VarUserMemId = 1\nPublic B\n",
     "Public B\n",
     "Public B\n",
     {"Attribute A.VB_VarUserMemId = 1"}},
    {"a name, between blank lines that came and went",
     "Property Get A()\nx = 1\nEnd Property\nSub B(p)\nAttribute B.VB_Description = \"b\"\n\nEnd Sub\n",
     "Property Get A()\n\nEnd Property\nSub C(p)\ny\nEnd Sub\n",
     "Property Get A()\n\nEnd Property\nSub C(p)\nAttribute C.VB_Description = \"b\"\ny\nEnd Sub\n",
     {}},
    {"an unchanged line of a continued header",
     "Sub Foo( _\n  a)\n" + kFooLine + "\nEnd Sub\n",
     "Sub First()\nEnd Sub\nSub Bar(b, _\n  a)\nEnd Sub\n",
     "Sub First()\nEnd Sub\nSub Bar(b, _\n  a)\nAttribute Bar.VB_UserMemId = 0\nEnd Sub\n",
     {}},
    {"but not a new member elsewhere",
     "Sub Foo(p)\n" + kFooLine + "\nEnd Sub\nSub M()\nx\nEnd Sub\n",
     "Sub M()\nx\nEnd Sub\nSub Bar(p)\nEnd Sub\n",
     "Sub M()\nx\nEnd Sub\nSub Bar(p)\nEnd Sub\n",
     {kFooLine}},
    {"accessors that changed places elsewhere",
     "Property Get P()\nAttribute P.VB_UserMemId = 0\nEnd Property\nProperty Let P(v)\nEnd Property\nSub M()\nx\ny\n",
     "Sub M()\nx\ny\nProperty Let P(w)\nEnd Property\nProperty Get P(i)\nEnd Property\n",
     "Sub M()\nx\ny\nProperty Let P(w)\nEnd Property\nProperty Get P(i)\nAttribute P.VB_UserMemId = 0\nEnd Property\n",
     {}},
    {"a kind, where the name occurs elsewhere too",
     kFoo + "Sub M()\ny\nEnd Sub\n",
     "Property Get Foo()\nx = 1\nEnd Property\nSub M()\ny\nEnd Sub\nProperty Let Foo(v)\nEnd Property\n",
     "Property Get Foo()\n" + kFooLine +
         "\nx = 1\nEnd Property\nSub M()\ny\nEnd Sub\nProperty Let Foo(v)\n"
         "End Property\n",
     {}},
    {"a line of no member that is continued now",
     "a\nb\n" + kFooLine + "\nc\n",
     "a\nb _\nd\nc\n",
     "a\nb _\nd\n" + kFooLine + "\nc\n",
     {}},
    {"a name and parameters at once",
     kFoo,
     "' new\n\nSub Bar(a)\nx = 1\nEnd Sub\n",
     "' new\n\nSub Bar(a)\nAttribute Bar.VB_UserMemId = 0\nx = 1\nEnd Sub\n",
     {}},
    {"a kind and a place at once",
     kFoo + "Sub M()\ny\nz\nEnd Sub\n",
     "Sub M()\ny\nz\nEnd Sub\nFunction Foo()\nEnd Function\n",
     "Sub M()\ny\nz\nEnd Sub\nFunction Foo()\n" + kFooLine + "\nEnd Function\n",
     {}},
    {"a type suffix",
     "Function F$(a)\nAttribute F.VB_Description = \"f\"\nEnd Function\n",
     "Function G$(a)\nEnd Function\n",
     "Function G$(a)\nAttribute G.VB_Description = \"f\"\nEnd Function\n",
     {}},
    {"a name of two-byte characters",
     "Event \x83\x5C\x83_()\nAttribute \x83\x5C\x83_.VB_UserMemId = 5\n",
     "Event \x95\x40\x83\x5C(a)\n",
     "Event \x95\x40\x83\x5C(a)\nAttribute \x95\x40\x83\x5C.VB_UserMemId = 5\n",
     {}},
    {"before the first line", "Attribute VB_Name = \"M\"\n\nx\n", "y\n", "Attribute VB_Name = \"M\"\ny\n", {}},
    {"not behind its declaration",
     "Sub Foo()\n' why\n" + kFooLine + "\nEnd Sub\n",
     "Sub Bar()\n' because\nEnd Sub\n",
     "Sub Bar()\n' because\nAttribute Bar.VB_UserMemId = 0\nEnd Sub\n",
     {}},
    {"not behind its declaration, line deleted",
     "Sub Foo()\n' why\n" + kFooLine + "\nEnd Sub\n",
     "Sub Foo()\nEnd Sub\n",
     "Sub Foo()\n" + kFooLine + "\nEnd Sub\n",
     {}},
    {"of a member that is declared nowhere",
     "a\nb\n" + kFooLine + "\nc\n",
     "a\nB\nd\n",
     "a\nB\n" + kFooLine + "\nd\n",
     {}},
    {"and its line moved", "b\n" + kFooLine + "\nc\nd\n", "c\nd\nb\n", "c\nd\nb\n" + kFooLine + "\n", {}},
    {"the last line of the file",
     "Sub Foo(): End Sub\n" + kFooLine,
     "Sub Bar(): End Sub\n' more\n",
     "Sub Bar(): End Sub\nAttribute Bar.VB_UserMemId = 0\n' more",
     {}},
};

INSTANTIATE_TEST_SUITE_P(ComposeFile, HiddenLinesFollow, testing::ValuesIn(kHiddenCases), [](const auto& row) {
  std::string name = row.param.what;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == ' ' || c == ',' || c == '-'; }, '_');
  return name;
});

/// One procedure of a generated module; the generator knows where its hidden lines belong.
struct Member {
  std::string before, name, behind;  ///< the header around the name; `behind` may hold LF where it is continued
  std::string end;
  Strings attributes;  ///< behind "Attribute NAME."
  Strings body;

  Strings Header() const { return LinesOf(before + name + behind + "\n"); }
};

class ModuleMaker {
 public:
  explicit ModuleMaker(unsigned seed) : random_(seed) {}

  std::size_t Below(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(random_); }
  bool OneIn(std::size_t n) { return Below(n) == 0; }

  std::string NewName() { return (OneIn(6) ? "\x83\x5C" : "Name") + std::to_string(++count_); }

  std::string BodyLine() {
    static const Strings kCommon = {"", "  End If", "  x = 1", "  Dim Name1 As Long", "  ' \xED\x40"};
    return OneIn(2) ? kCommon[Below(kCommon.size())] : NewLine();
  }

  std::string NewLine() { return "  Call Line" + std::to_string(++count_) + "(\"\xED\x40\")"; }

  Member NewMember() {
    static const std::vector<std::pair<std::string, std::string>> kKinds = {
        {"Public Sub ", "End Sub"},
        {"Private Static Function ", "End Function"},
        {"Property Get ", "End Property"},
        {"Friend Property Let ", "End Property"},
        {"Property _\n  Set ", "End Property"}};
    const auto& [before, end] = kKinds[Below(kKinds.size())];
    Member member{before, NewName(), "", end, {}, {}};
    Parameters(member);
    for (std::size_t i = Below(3); i > 0; --i)
      member.attributes.push_back("VB_Thing" + std::to_string(++count_) + " = 1");
    for (std::size_t i = Below(6); i > 0; --i) member.body.push_back(BodyLine());
    return member;
  }

  void Parameters(Member& member) {
    const std::string one = "p" + std::to_string(++count_);
    member.behind = OneIn(3) ? "( _\n    ByVal " + one + ", _\n    q" + one + ")" : "(" + one + ")";
  }

  static Strings Code(const std::vector<Member>& members) {
    Strings lines = {"Option Explicit"};
    for (const Member& member : members) {
      for (const std::string& line : member.Header()) lines.push_back(line);
      lines.insert(lines.end(), member.body.begin(), member.body.end());
      lines.push_back(member.end);
    }
    return lines;
  }

  static Strings WithHidden(const std::vector<Member>& members) {
    Strings lines = {"Option Explicit"};
    for (const Member& member : members) {
      for (const std::string& line : member.Header()) lines.push_back(line);
      for (const std::string& attribute : member.attributes) {
        lines.push_back("Attribute " + member.name + "." + attribute);
      }
      lines.insert(lines.end(), member.body.begin(), member.body.end());
      lines.push_back(member.end);
    }
    return lines;
  }

  /// A file with line ends and spellings of its own.
  std::string File(const std::vector<Member>& members) {
    static const Strings kEnds = {"\r\n", "\n", "\r"};
    const std::string usual = kEnds[Below(3)];
    std::string bytes = OneIn(2) ? "" : "VERSION 1.0 CLASS" + usual + "BEGIN" + usual + "END" + usual;
    bytes += "Attribute VB_Name = \"M\"" + usual;
    for (std::string line : WithHidden(members)) {
      if (const std::size_t at = line.find("\xED\x40"); at != std::string::npos && OneIn(2))
        line.replace(at, 2, "\xFA\x5C");
      // A lone LF behind a lone CR and an empty line would be no line.
      bytes += line + (line.empty() ? "\r\n" : OneIn(8) ? kEnds[Below(3)] : usual);
    }
    if (OneIn(3)) bytes.erase(bytes.find_last_not_of("\r\n") + 1);
    return bytes;
  }

  void EditBodies(std::vector<Member>& members, bool keepCount) {
    for (std::size_t i = Below(4); i > 0; --i) {
      Strings& body = members[Below(members.size())].body;
      const std::size_t at = Below(body.size() + 1);
      const auto place = body.begin() + static_cast<std::ptrdiff_t>(at);
      if (at < body.size() && (keepCount || OneIn(2))) {
        *place = NewLine();
      } else if (at < body.size() && OneIn(2)) {
        body.erase(place);
      } else if (!keepCount) {
        body.insert(place, NewLine());
      }
    }
  }

  std::mt19937& Random() { return random_; }

 private:
  std::mt19937 random_;
  int count_ = 0;
};

std::string Canonical(std::string line) {
  for (std::size_t at; (at = line.find("\xFA\x5C")) != std::string::npos;) line.replace(at, 2, "\xED\x40");
  return line;
}

/// The lines of a file, hidden ones too, behind its header.
Strings AllLines(const SourceFile& file) {
  Strings lines;
  std::size_t hidden = 0;
  for (std::size_t i = 0; i <= file.Lines().size(); ++i) {
    if (i > 0) lines.push_back(Canonical(std::string(file.LineBytes(i - 1))));
    for (; hidden < file.Hidden().size() && file.Hidden()[hidden].after == static_cast<int>(i); ++hidden) {
      const SourceFile::HiddenLine& line = file.Hidden()[hidden];
      std::string bytes = file.Bytes().substr(line.begin, line.end - line.begin);
      lines.push_back(bytes.erase(bytes.find_last_not_of("\r\n") + 1));
    }
  }
  return lines;
}

/// The lines of code that the generator made only once, but for the last, with their bytes and line end.
std::map<std::string, std::pair<std::string, std::string>> UniqueLines(const SourceFile& file) {
  std::map<std::string, std::pair<std::string, std::string>> unique;
  for (std::size_t i = 0; i + 1 < file.Lines().size(); ++i) {
    const std::string bytes(file.LineBytes(i));
    if (bytes.find("Call Line") != std::string::npos) unique[Canonical(bytes)] = {bytes, std::string(file.LineEnd(i))};
  }
  return unique;
}

TEST(ComposeFile, GeneratedEditsLoseNothing) {
  const unsigned seed = std::random_device{}();
  ModuleMaker make(seed);
  for (int round = 0; round < 2000 && !HasFailure(); ++round) {
    std::vector<Member> members;
    for (std::size_t i = 1 + make.Below(6); i > 0; --i) members.push_back(make.NewMember());
    const SourceFile file(make.File(members));
    const Strings canonical = ModuleMaker::Code(members);
    ASSERT_EQ(AllLines(file), ModuleMaker::WithHidden(members));
    EXPECT_EQ(Compose(file, canonical, canonical).bytes, file.Bytes());

    const std::size_t way = make.Below(4);
    make.EditBodies(members, way == 0);
    Strings gone;
    for (std::size_t i = 0; i < members.size(); ++i) {
      if (way == 0 && make.OneIn(2)) members[i].name = make.NewName();
      if (way == 1 && make.OneIn(2)) make.Parameters(members[i]);
      if (way == 2 && make.OneIn(3)) {
        for (const std::string& one : members[i].attributes) gone.push_back("Attribute " + members[i].name + "." + one);
        members.erase(members.begin() + static_cast<std::ptrdiff_t>(i--));
      }
    }
    const bool moved = way >= 2 && make.OneIn(2);
    if (moved) std::shuffle(members.begin(), members.end(), make.Random());
    if (way == 3) {
      Member fresh = make.NewMember();
      fresh.attributes.clear();
      members.insert(members.begin() + static_cast<std::ptrdiff_t>(make.Below(members.size() + 1)), fresh);
    }

    const ComposedFile composed = Compose(file, canonical, ModuleMaker::Code(members));
    const SourceFile result(composed.bytes);
    EXPECT_EQ(AllLines(result), ModuleMaker::WithHidden(members));
    EXPECT_EQ(composed.droppedHiddenLines, gone);
    EXPECT_EQ(result.Bytes().substr(0, result.CodeBegin()), file.Bytes().substr(0, file.CodeBegin()));
    if (!moved) {
      const auto before = UniqueLines(file), after = UniqueLines(result);
      for (const auto& [line, bytes] : after) {
        EXPECT_TRUE(!before.contains(line) || bytes == before.at(line)) << line;
      }
    }
    if (HasFailure()) FAIL() << "seed " << seed << ", round " << round << ", way " << way << "\n" << file.Bytes();
  }
}

}  // namespace
}  // namespace quorvane::workbench
