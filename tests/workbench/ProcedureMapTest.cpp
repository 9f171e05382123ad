#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "TextPages.h"
#include "base/Error.h"
#include "base/Text.h"
#include "support/Raised.h"
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

struct Case {
  std::string text;  ///< `|` stands for a line end
  std::string expected;
};

class ProcedureMapTest : public testing::TestWithParam<Case> {};

/// Once as the file gives the lines, once as if they had been typed.
TEST_P(ProcedureMapTest, DividesAModule) {
  const TwoBytePage page;
  TurnClock clock;
  std::string bytes = GetParam().text;
  for (std::size_t at = 0; (at = bytes.find('|', at)) != bytes.npos;) bytes.replace(at, 1, "\r\n");
  Module module(std::make_shared<SourceFile>(bytes), page, clock);
  EXPECT_EQ(Describe(module), GetParam().expected);
  ExpectCovered(module);

  const std::u16string text = module.Text();
  Module typed(std::make_shared<SourceFile>(), page, clock);
  if (!text.empty()) typed.InsertLines(1, text);
  EXPECT_EQ(Describe(typed), GetParam().expected) << "typed";
}

INSTANTIATE_TEST_SUITE_P(
    Headers, ProcedureMapTest,
    testing::Values(
        Case{"", "0"}, Case{"Sub A()|End Sub", "0; A 1+2"}, Case{"sub a|end sub|", "0; a 1+2"},
        Case{"Public Static Function A%()|END  FUNCTION|Static Private Sub B()|End Sub|Friend Sub C()|End Sub",
             "0; A 1+2; B 3+2; C 5+2"},
        Case{"Property Get P() As Long|End Property|Property Let P(a)|End Property|Public Property Set P(a)|End "
             "Property",
             "0; P Get 1+2; P Let 3+2; P Set 5+2"},
        Case{"Sub A(): End Sub|Function B&(): B = 1: End Function|'", "0; A 1+1; B 2+2"},
        Case{"Sub [My Sub]()|End Sub|Sub[x]()|End Sub", "0; My Sub 1+2; x 3+2"},
        Case{"Sub \x95\x5C\x95\x5Dz$()|End Sub", "0; \u5DDC\u5DDDz 1+2"},
        Case{"10 Sub A()|20 x|30 End Sub|lbl: Sub B()|z: End Sub|", "0; A 1+3; B 4+2"},
        Case{"Private Sub _|  A _|  (x)|End _|\tSub|Sub B()|End Sub", "0; A 1+5; B 6+2"},
        Case{"Sub A()|x = \"End Sub|End Sub|Sub B()|s = \"a:End Sub\": ' : End Sub|rem : End Sub|Rem x _|End Sub|' "
             "_|End Sub|End Sub",
             "0; A 1+3; B 4+8"},
        Case{"Sub A()|End Sub|Sub B(): End Sub|Sub a()|End Sub|Sub A()|End Sub", "0; A 1+2; B 3+1; a 4+2; A 6+2"},
        Case{"Sub A()|Sub B()|End Sub|End Sub|Sub C(): Sub D()|End", "0; A 1+1; B 2+2; C 4+1; D 5+2"},
        Case{"Sub A()|x \"_ _|: End Sub|Sub B", "0; A 1+3; B 4+1"}));

INSTANTIATE_TEST_SUITE_P(
    LookAlikes, ProcedureMapTest,
    testing::Values(
        Case{"Declare Sub A Lib \"x\" ()|Private Declare Function B Lib \"x\" () As Long|Event Sub1()|Public Event C()",
             "4"},
        Case{"Sub A()|Exit Sub|SubTotal = 1|Static x As Long|Property.x = 2|Functions 3|EndSub|End|End If|End "
             "SubTotal|End Sub|x",
             "0; A 1+12"},
        Case{"Type T|  Property As Long|  Sub As Long|  Static As Long|End Type", "5"},
        Case{"remainder = 1|Rem Sub A(): Sub A()|End Sub", "3"}, Case{"x = \"|Sub A()|End Sub", "1; A 2+2"}));

INSTANTIATE_TEST_SUITE_P(
    Declarations, ProcedureMapTest,
    testing::Values(Case{"Option Explicit||' about A|#Const x = 1|Sub A()|End Sub||' end", "1; A 2+7"},
                    Case{"Dim a, _|  b|  |Rem about A|Sub A()|End Sub", "2; A 3+4"},
                    Case{"#If X Then|Dim a|#Else|Dim b|#End If||Sub A()|End Sub", "5; A 6+3"},
                    Case{"Dim a|#If X Then|'|#If Y Then|#End If|#End If|Sub A()|End Sub", "1; A 2+7"},
                    Case{"#If X Then|#If Y Then|Dim a|#End If|#End If|Sub A()|End Sub", "5; A 6+2"},
                    Case{"Dim a|#If X Then|Sub A()|End Sub|#End If|Dim b|Sub B()|End Sub", "1; A 2+3; B 5+4"},
                    Case{"' x|Option Explicit|'", "3"}, Case{"Dim a: Sub A()|End Sub", "0; A 1+2"},
                    Case{"Dim a ' x _|  y|Sub A()|End Sub", "2; A 3+2"}, Case{"||Sub A()|End Sub", "0; A 1+4"},
                    Case{"End Sub|Sub A()|End Sub", "1; A 2+2"}));

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
