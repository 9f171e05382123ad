#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <utility>

#include "support/Rows.h"
#include "support/Seed.h"
#include "workbench/text/ComposeFile.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::workbench {
namespace {

using Strings = std::vector<std::string>;

/// The lines of `text` between LF; what follows the last LF is one when it is not empty.
Strings LinesOf(std::string_view text) {
  Strings lines;
  while (!text.empty()) {
    const std::size_t feed = std::min(text.find('\n'), text.size());
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
  for (const test::Row& row : test::Rows("workbench/ComposeFile.rows", "LineEnds")) {
    const std::string result = Compose(row.Bytes(1), row.List(2)).bytes;
    EXPECT_EQ(result, row.Bytes(3)) << row.Where();
    EXPECT_EQ(CodeOf(SourceFile(result)), row.List(2)) << row.Where();
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

TEST(ComposeFile, HiddenLinesFollowTheirDeclaration) {
  for (const test::Row& row : test::Rows("workbench/ComposeFile.rows", "HiddenLines")) {
    Strings code = LinesOf(row.Bytes(2));
    std::erase_if(code, [](const std::string& line) { return line.starts_with("Attribute "); });
    const ComposedFile composed = Compose(row.Bytes(1), code);
    EXPECT_EQ(composed.bytes, row.Bytes(2)) << row.Where();
    EXPECT_EQ(composed.droppedHiddenLines, row.List(3)) << row.Where();
    EXPECT_EQ(CodeOf(SourceFile(composed.bytes)), code) << row.Where();
  }
}

/// One procedure of a generated module; the generator knows where its hidden lines belong.
struct Member {
  std::string before, name, behind;  ///< the header around the name; `behind` may hold LF where it is continued
  std::string end;
  Strings attributes;  ///< after "Attribute NAME."
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
      // A lone LF after a lone CR and an empty line would be no line.
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

/// The lines of a file, hidden ones too, after its header.
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
  ModuleMaker make(test::NewSeed());
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
    if (HasFailure()) FAIL() << "round " << round << ", way " << way << "\n" << file.Bytes();
  }
}

}  // namespace
}  // namespace quorvane::workbench
