#include <gtest/gtest.h>

#include "addin/core/ErrorManager.h"
#include "addin/search/PositionInfo.h"
#include "search/NaiveModule.h"
#include "support/PassingModule.h"
#include "support/SearchFixture.h"
#include "workbench/model/HostWindow.h"
#include "workbench/model/Pane.h"

namespace quorvane::test {

namespace {

constexpr std::int32_t kOverflow = 6;

PositionInfo& Set(PositionInfo& pi, std::int32_t y1, std::int32_t x1, std::int32_t y2, std::int32_t x2) {
  pi.mlngY1 = y1;
  pi.mlngX1 = x1;
  pi.mlngY2 = y2;
  pi.mlngX2 = x2;
  return pi;
}

std::string Range(const PositionInfo& pi) {
  return std::to_string(pi.mlngY1) + "," + std::to_string(pi.mlngX1) + "-" + std::to_string(pi.mlngY2) + "," +
         std::to_string(pi.mlngX2);
}

}  // namespace

class PositionInfoFixture : public SearchFixture {
 protected:
  /// A range in module M.
  PositionInfo& InModule(std::u16string_view code) {
    OpenModule(CrLf(code));
    pi_.mobjCodeObject = Module(u"M").CodePane()->CodeModule();
    return Set(pi_, 1, 1, 1, 1);
  }

 private:
  PositionInfo pi_;
};

TEST(PositionInfoWide, ScreenColumnsOfWideCharacters) {
  SearchWorld japanese("932");
  // 漢 is wide, the half-width ｱ and the tab are not.
  japanese.OpenModule(u"漢a\tｱ字");
  PositionInfo pi;
  pi.mobjCodeObject = japanese.Module(u"M").CodePane()->CodeModule();
  Set(pi, 1, 1, 1, 1);
  const std::vector<std::pair<std::int32_t, std::int32_t>> columns{{0, 1}, {1, 1}, {2, 3}, {3, 4},
                                                                   {4, 5}, {5, 6}, {6, 8}, {9, 8}};
  for (const auto& [x, column] : columns) {
    pi.mlngX1 = pi.mlngX2 = x;
    EXPECT_EQ(std::pair(pi.ScreenX1(), pi.ScreenX2()), std::pair(column, column)) << "X " << x;
  }
  const std::vector<std::pair<std::int32_t, std::int32_t>> places{{1, 1}, {2, 2}, {3, 2}, {4, 3}, {5, 4},
                                                                  {6, 5}, {7, 6}, {8, 6}, {99, 6}};
  for (const auto& [column, x] : places) {
    pi.SetScreenX1(column);
    pi.SetScreenX2(column);
    EXPECT_EQ(std::pair(pi.mlngX1, pi.mlngX2), std::pair(x, x)) << "column " << column;
  }
}

TEST_F(PositionInfoFixture, NumbersOutOfRangeOverflow) {
  PositionInfo& pi = InModule(std::u16string(32000, u'x') + std::u16string(2000, u'y'));
  pi.mlngX1 = 32767;
  EXPECT_EQ(pi.ScreenX1(), 32767);
  pi.mlngX1 = 32768;
  EXPECT_EQ(Raised([&] { pi.ScreenX1(); }), kOverflow);
  EXPECT_EQ(Raised([&] { pi.SetScreenX2(32768); }), kOverflow);
  pi.mlngY1 = 2;
  pi.mlngX1 = INT32_MAX;
  EXPECT_EQ(Raised([&] { pi.StartPos(1); }), kOverflow);
}

TEST_F(PositionInfoFixture, RelativeTextClampsItsStartAlone) {
  std::u16string code;
  for (char16_t c = u'a'; c < u'a' + 15; ++c) code += std::u16string(1, c) + (c < u'a' + 14 ? u"\n" : u"");
  PositionInfo& pi = Set(InModule(code), 2, 1, 2, 2);
  EXPECT_EQ(pi.RelativeText(5), CrLf(u"a\nb\nc\nd\ne\nf\ng\nh\ni\nj\nk")) << "one line before, nine after";
  EXPECT_EQ(pi.RelativeMatchStartPos(5), 4);
  EXPECT_EQ(pi.RelativeMatchEndPos(5), 5);
  EXPECT_EQ(Set(pi, 14, 1, 15, 2).RelativeText(1), CrLf(u"m\nn\no")) << "the lines that exist";
  EXPECT_EQ(pi.RelativeMatchEndPos(1), 8);
  Setting().mintRelativeLineCount = 0;
  EXPECT_EQ(Set(pi, 3, 1, 3, 2).RelativeText(), u"c") << "the setting counts without an argument";
  EXPECT_EQ(pi.RelativeMatchStartPos(), 1);
}

TEST_F(PositionInfoFixture, LineCountIsPiecesAtLineFeeds) {
  EXPECT_EQ(PositionInfo::GetLineCount(u""), 1);
  EXPECT_EQ(PositionInfo::GetLineCount(u"a\r"), 1);
  EXPECT_EQ(PositionInfo::GetLineCount(u"a\r\nb"), 2);
  EXPECT_EQ(PositionInfo::GetLineCount(u"a\r\nb\n"), 3);
}

TEST_F(PositionInfoFixture, NamesTheProcedureOfItsFirstLine) {
  PositionInfo& pi = InModule(
      u"Private m\nSub A()\nEnd Sub\nProperty Get P()\nEnd Property\n"
      u"Property Let P(v)\nEnd Property\nProperty Set P(v)\nEnd Property");
  std::vector<std::string> names;
  for (std::int32_t y = 1; y <= 9; y += y == 1 ? 1 : 2) {
    Set(pi, y, 1, 9, 1);
    names.push_back(std::to_string(y) + " " + ToUtf8(pi.ProcType()) + " " + ToUtf8(pi.ProcName()));
  }
  EXPECT_EQ(Join(names), "1 Proc (Declarations)\n2 Proc A\n4 Get P\n6 Let P\n8 Set P");
  EXPECT_EQ(Set(pi, 2, 5, 3, 4).line(), u"Sub A()");
  EXPECT_EQ(pi.component()->Name(), u"M");
  EXPECT_EQ(pi.project()->Name(), u"P");
}

TEST_F(PositionInfoFixture, RegionsOfTheAreas) {
  const std::map<std::string, gsArea> areas = {
      {"module", gsCurModule}, {"procedure", gsCurProcedure}, {"selection", gsSelection}};
  for (const Row& row : Rows("search/PositionInfo.rows", "Regions")) {
    OpenModule(CrLf(row.Text(1)));
    Activate(u"M", row.Range(2));
    PositionInfo pi;
    pi.GetSelInfo(areas.at(row.Bytes(3)));
    EXPECT_EQ(Range(pi), row.Bytes(4)) << row.Where();
    EXPECT_EQ(pi.MatchStr(), row.Text(5)) << row.Where();
  }
}

namespace {

/// A host that finds the first procedure of a name and no other.
struct FirstOfName final : PassingModule, vbide::CodePane {
  using PassingModule::PassingModule;
  std::int32_t ProcStartLine(std::u16string_view, vbide::ProcKind) const override { return 1; }
  std::int32_t ProcCountLines(std::u16string_view, vbide::ProcKind) const override { return 2; }

  std::shared_ptr<vbide::CodeModule> CodeModule() const override { return self.lock(); }
  std::shared_ptr<vbide::Window> Window() const override { return nullptr; }
  vbide::Selection GetSelection() const override { return {line, 1, line, 1}; }
  void SetSelection(const vbide::Selection&) override {}
  void Show() override {}

  std::weak_ptr<FirstOfName> self;
  std::int32_t line = 1;
};

}  // namespace

TEST_F(PositionInfoFixture, AProcedureThatDoesNotHoldTheCaretIsAnError) {
  OpenModule(CrLf(u"Sub A()\nEnd Sub\nSub A()\nEnd Sub"));
  const auto odd = std::make_shared<FirstOfName>(Module(u"M").CodePane()->CodeModule());
  odd->self = odd;
  PositionInfo pi;
  for (odd->line = 1; odd->line <= 4; ++odd->line) {
    EXPECT_EQ(Raised([&] { pi.GetProcedure(*odd); }), odd->line < 3 ? 0 : 5) << odd->line;
  }
}

TEST_F(PositionInfoFixture, WithoutAnActivePaneTheRegionStays) {
  Open(Group{}.Module(u"M", u"x"));
  PositionInfo pi;
  Set(pi, 7, 7, 8, 8);
  for (const gsArea area : {gsCurModule, gsCurProcedure, gsSelection}) {
    EXPECT_EQ(Raised([&] { pi.GetSelInfo(area); }), kErrNoCodePane) << area;
  }
  pi.GetSelInfo(gsCurProject);
  pi.GetSelInfo(gsAllProjects);
  EXPECT_EQ(Range(pi), "7,7-8,8");
}

TEST(PositionInfoWide, ShowSelectsInScreenColumnsAndComesToTheFront) {
  SearchWorld world("932");
  world.Open(Group{}.Module(u"A", u"").Module(u"B", CrLf(u"x\n漢字 match")));
  world.Activate(u"A");
  for (const bool maximize : {false, true}) {
    world.Setting().mblnMaximizeWhenLocate = maximize;
    PositionInfo pi;
    pi.mobjCodeObject = world.Module(u"B").CodePane()->CodeModule();
    Set(pi, 2, 4, 2, 9);
    const int yields = world.platform.loop.Yields;
    pi.Show();
    EXPECT_EQ(world.platform.loop.Yields, yields + 1);
    const auto pane = world.host->ActiveCodePane();
    EXPECT_EQ(pane, world.Module(u"B").CodePane());
    EXPECT_EQ(pane->GetSelection(), (vbide::Selection{2, 6, 2, 11}));
    const auto& window = *std::dynamic_pointer_cast<workbench::Pane>(pane)->TheWindow();
    EXPECT_EQ(window.WindowState(), maximize ? workbench::HostWindow::kMaximized : workbench::HostWindow::kNormal);
  }
}

TEST_F(PositionInfoFixture, AfterTearDownItsTextIsNothing) {
  PositionInfo& pi = InModule(u"x");
  pi.TearDown();
  EXPECT_EQ(Raised([&] { pi.MatchStr(); }), static_cast<std::int32_t>(ErrorNumber::ObjectNotSet));
}

/// Every conversion on every place of generated modules, against the long way.
TEST(PositionInfoGenerated, AgreesWithTheLongWay) {
  for (std::uint32_t seed = 1; seed <= 200; ++seed) {
    Dice dice(seed);
    const auto lines = RandomLines(dice, 7, {u"a", u"漢", u"ｱ", u"\t", u"'", u"\"", u"_", u"rem ", u" "});
    const NaiveModule naive(lines);
    SearchWorld world("932");
    world.OpenModule(JoinLines(lines));
    SCOPED_TRACE("seed " + std::to_string(seed) + ":\n" + ToUtf8(naive.Text()));
    if (world.Module(u"M").CountOfLines() != naive.Count()) continue;  // an empty last line is none
    PositionInfo pi;
    pi.mobjCodeObject = world.Module(u"M").CodePane()->CodeModule();
    for (std::int32_t base = 1; base <= naive.Count(); ++base) {
      const auto length = static_cast<std::int32_t>(naive.Lines(base, naive.Count()).size());
      for (std::int32_t pos = 1; pos <= length + 2; ++pos) {
        pi.SetStartPos(base, pos);
        ASSERT_EQ(std::pair(pi.mlngY1, pi.mlngX1), naive.Place(base, pos)) << "base " << base << " offset " << pos;
        ASSERT_EQ(pi.StartPos(base), pos);
        const std::int32_t end = std::min(length + 2, pos + dice.Roll(9) - 1);
        pi.SetEndPos(base, end);
        ASSERT_EQ(std::pair(pi.mlngY2, pi.mlngX2), naive.Place(base, end)) << "base " << base << " offset " << end;
        ASSERT_EQ(pi.MatchStr(), naive.Match(pi.mlngY1, pi.mlngX1, pi.mlngY2, pi.mlngX2)) << Range(pi);
        ASSERT_EQ(pi.HaveComment(), naive.HasComment(pi.mlngY1, pi.mlngY2, pi.mlngX2)) << Range(pi);
        ASSERT_EQ(pi.ScreenX1(), NaiveModule::XToScreenX(pi.mlngX1, naive.Line(pi.mlngY1))) << Range(pi);
        ASSERT_EQ(pi.RelativeMatchEndPos(2), naive.Offset(std::max(pi.mlngY1 - 2, 1), pi.mlngY2, pi.mlngX2));
        const std::int32_t column = dice.Roll(30);
        pi.SetScreenX2(column);
        ASSERT_EQ(pi.mlngX2, NaiveModule::ScreenXToX(column, naive.Line(pi.mlngY2))) << "column " << column;
      }
    }
  }
}

}  // namespace quorvane::test
