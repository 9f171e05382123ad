#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "TextPages.h"
#include "base/Text.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/Seen.h"
#include "workbench/model/Module.h"

namespace quorvane::workbench {
namespace {

using vbide::ProcKind;

const char* KindName(ProcKind kind) {
  static constexpr const char* kNames[] = {"", " Let", " Set", " Get"};
  return kNames[static_cast<int>(kind)];
}

/// `declaration lines; name kind start+count; …`
std::string Describe(const Module& module) {
  std::string text = std::to_string(module.CountOfDeclarationLines());
  for (const Procedure& p : module.Procedures()) {
    text += "; " + ToUtf8(p.name) + KindName(p.kind) + " " + std::to_string(p.startLine) + "+" +
            std::to_string(p.countOfLines);
  }
  return text;
}

/// Each line is in the declarations or in the procedure that covers it.
void ExpectCovered(Module& whole) {
  const auto module = test::Seen(whole);
  std::int32_t next = module->CountOfDeclarationLines() + 1;
  for (const Procedure& p : whole.Procedures()) {
    EXPECT_EQ(p.startLine, next);
    EXPECT_GE(p.countOfLines, 0);
    next = p.startLine + p.countOfLines;
    for (std::int32_t line = p.startLine; line < next; ++line) {
      ProcKind kind = ProcKind::Proc;
      EXPECT_EQ(module->ProcOfLine(line, kind), p.name);
      EXPECT_EQ(kind, p.kind);
      EXPECT_EQ(module->ProcStartLine(p.name, kind), p.startLine);
      EXPECT_EQ(module->ProcCountLines(p.name, kind), p.countOfLines);
    }
  }
  EXPECT_EQ(next, module->CountOfLines() + 1);
  for (const std::int32_t line : {-1, 0, module->CountOfDeclarationLines(), module->CountOfLines() + 1}) {
    ProcKind kind = ProcKind::Get;
    EXPECT_EQ(module->ProcOfLine(line, kind), u"") << line;
    EXPECT_EQ(kind, ProcKind::Proc);
  }
}

/// Once as the file gives the lines, once as if they had been typed.
TEST(ProcedureMap, DividesAModule) {
  const TwoBytePage page;
  TurnClock clock;
  for (const char* table : {"Headers", "LookAlikes", "Declarations"}) {
    for (const test::Row& row : test::Rows("workbench/ProcedureMap.rows", table)) {
      SCOPED_TRACE(row.Where());
      std::string bytes = row.Bytes(0);
      for (std::size_t at = 0; (at = bytes.find('|', at)) != bytes.npos;) bytes.replace(at, 1, "\r\n");
      Module module(std::make_shared<SourceFile>(bytes), page, clock);
      EXPECT_EQ(Describe(module), row.Bytes(1));
      ExpectCovered(module);

      const std::u16string text = module.Text();
      Module typed(std::make_shared<SourceFile>(), page, clock);
      if (!text.empty()) typed.InsertLines(1, text);
      EXPECT_EQ(Describe(typed), row.Bytes(1)) << "typed";
    }
  }
}

class ProcedureMapModules : public testing::Test {
 protected:
  std::string Pick(const std::vector<std::string>& from) { return from[random_() % from.size()]; }
  void Line(const std::string& text) {
    bytes_ += text + "\r\n";
    ++lines_;
  }
  void Filler(const std::vector<std::string>& from) {
    for (auto n = random_() % 4; n > 0; --n) Line(Pick(from));
  }

  /// Writes a procedure whose first line stands behind what was written so far.
  Procedure Write(int serial) {
    const std::int32_t start = lines_ + 1;
    Filler({"", "' Sub X()", "  Rem : Sub X()", "#Const y = 1", "\t' x : Function Y() _\r\n\tSub Z()"});
    const auto kind = static_cast<ProcKind>(random_() % 4);
    const std::string name = Pick({"P", "p"}) + std::to_string(serial % 3);  // a name may come again
    const std::string word = kind != ProcKind::Proc ? "Property" : Pick({"Sub", "Function"});
    const std::string accessor = kind != ProcKind::Proc ? std::string(KindName(kind)) : "";
    Line(Pick({"", "Public ", "Private Static ", "  Friend\t"}) + word + accessor + Pick({" ", " _\r\n  "}) + name +
         Pick({"", "(x)", "()  ' Sub Q()", " (ByVal a, _\r\n  b)"}));
    Filler({"  x = \"End Sub\"", "", "  Exit Sub", "  If a Then b: c", "  Call Sub1 ' : End Sub", "  End If",
            "  a _\r\n  b", "#If End Then", "lbl:", "  s = \"\"\":End Sub\"\"\""});
    Line(Pick({"End ", "  END\t", "lbl: End ", "12 End "}) + word + Pick({"", " ' end", " "}));
    lines_ = static_cast<std::int32_t>(std::count(bytes_.begin(), bytes_.end(), '\n'));
    return {FromUtf8(name), kind, start, lines_ + 1 - start};
  }

  std::mt19937 random_;
  std::string bytes_;
  std::int32_t lines_ = 0;
};

TEST_F(ProcedureMapModules, AreDividedAsTheyWereBuilt) {
  const LatinPage page;
  TurnClock clock;
  for (unsigned seed = 0; seed < 300; ++seed) {
    SCOPED_TRACE(seed);
    random_.seed(seed);
    bytes_.clear();
    lines_ = 0;
    for (auto n = random_() % 3; n > 0; --n)
      Line(Pick({"Option Explicit", "Dim a", "Public Const x = \":Sub A()\"", "Private Declare Sub D Lib \"x\" ()"}));
    const std::int32_t declarations = lines_;
    std::vector<Procedure> built;
    for (int n = 0; n < 8; ++n) built.push_back(Write(n));
    Filler({"", "' the end", "  "});
    built.back().countOfLines = lines_ + 1 - built.back().startLine;
    Module module(std::make_shared<SourceFile>(bytes_), page, clock);
    EXPECT_EQ(module.CountOfDeclarationLines(), declarations);
    EXPECT_EQ(module.Procedures(), built) << bytes_ << Describe(module);
    ExpectCovered(module);
  }
}

TEST(ProcedureLookup, IgnoresCaseAndFollowsEdits) {
  const LatinPage page;
  TurnClock clock;
  Module module(
      std::make_shared<SourceFile>("Dim a\r\nSub \xC9t\xE9()\r\nEnd Sub\r\nProperty Let P(a)\r\nEnd Property\r\n"),
      page, clock);
  EXPECT_EQ(module.ProcStartLine(u"\u00E9T\u00C9", ProcKind::Proc), 2);
  EXPECT_EQ(module.ProcCountLines(u"p", ProcKind::Let), 2);
  EXPECT_EQ(test::Raised([&] { module.ProcStartLine(u"P", ProcKind::Get); }), "35 Sub or Function not defined: P");
  module.InsertLines(2, u"Sub New1()\r\nEnd Sub");
  EXPECT_EQ(module.ProcStartLine(u"P", ProcKind::Let), 6);
  module.Undo();
  EXPECT_EQ(module.ProcStartLine(u"P", ProcKind::Let), 4);
}

}  // namespace
}  // namespace quorvane::workbench
