#include "ResultWindowFixture.h"
#include "addin/results/ListPainter.h"
#include "support/RecordedCanvas.h"

namespace quorvane::test {

namespace {

// Widths of the canvas: 10 a character, 12 in bold.
class ListPainterTest : public testing::Test, public ResultWorld {
 protected:
  ListPainterTest() : ResultWorld(Group{}.Project(u"P").Module(u"M", CrLf(u"ab = ab\nL ab c L"))) {}

  void UseStylesheet(std::u16string_view body) { Setting().SetXSL(Stylesheet(body)); }
  void SearchUnder(std::u16string_view body) {
    UseStylesheet(body);
    EXPECT_EQ(Search(u"ab"), "");
  }

  std::string Draw(std::int32_t row, bool selected = false, std::int32_t left = 0) {
    List().DrawItem.Raise(row, canvas, selected, CanvasRect{left, 20, 400, 36});
    EXPECT_FALSE(canvas.FontSelected()) << "the font before is back";
    return canvas.Take();
  }

  RecordedCanvas canvas;
};

constexpr std::u16string_view kIdAndLine =
    u"<xsl:value-of select='@ID'/>:<xsl:value-of disable-output-escaping='yes' select='@Line'/>";

}  // namespace

TEST_F(ListPainterTest, FourPiecesOneBehindTheOther) {
  SearchUnder(kIdAndLine);
  EXPECT_EQ(Draw(0),
            "fill 0,20-400,36 ffffff\n"
            "text 5,20 404000 on ffffff '1:'\n"
            "text 25,20 0 on ffffff ''\n"
            "bold 25,20 0 on ffffff 'ab'\n"
            "text 49,20 0 on ffffff ' = ab'\n");
  EXPECT_EQ(Draw(1),
            "fill 0,20-400,36 ffffff\n"
            "text 5,20 404000 on ffffff '2:'\n"
            "text 25,20 0 on ffffff 'ab = '\n"
            "bold 75,20 0 on ffffff 'ab'\n"
            "text 99,20 0 on ffffff ''\n");
}

TEST_F(ListPainterTest, ASelectedRowIsOfOneColourAndShowsTheFocusWhileTheListHasIt) {
  SearchUnder(kIdAndLine);
  const std::string row =
      "fill 0,20-400,36 d77800\n"
      "text 5,20 ffffff on d77800 '1:'\n"
      "text 25,20 ffffff on d77800 ''\n"
      "bold 25,20 ffffff on d77800 'ab'\n"
      "text 49,20 ffffff on d77800 ' = ab'\n";
  EXPECT_EQ(Draw(0, true), row);
  List().SetHasFocus(true);
  EXPECT_EQ(Draw(0, true), row + "focus 0,20-400,36\n");
  EXPECT_EQ(Draw(0).find("focus"), std::string::npos);
}

TEST_F(ListPainterTest, ARowWithoutItsLineIsPlainAndWidensNothing) {
  SearchUnder(u"<xsl:value-of select='@ID'/>");
  EXPECT_EQ(Draw(0), "fill 0,20-400,36 ffffff\ntext 5,20 0 on ffffff '1'\n");
  EXPECT_EQ(Draw(1, true), "fill 0,20-400,36 d77800\ntext 5,20 ffffff on d77800 '2'\n");
  EXPECT_EQ(List().HorizontalExtent(), 0);
}

TEST_F(ListPainterTest, TheRangeFollowsTheWidestRowUntilASearchStarts) {
  SearchUnder(kIdAndLine);
  std::string told;
  const auto onRepaint =
      List().RepaintWanted.Subscribe([&] { told += std::to_string(List().HorizontalExtent()) + " "; });
  Draw(0);
  Draw(2);
  Draw(0);
  EXPECT_EQ(told, "104 114 ") << "margin, 7 plain and 2 bold characters, margin; then one plain more";
  Active().Reset();
  EXPECT_EQ(List().HorizontalExtent(), 114);
  EXPECT_EQ(Search(u"ab"), "");
  EXPECT_EQ(List().HorizontalExtent(), 0);
  Draw(0, false, -30);
  EXPECT_EQ(List().HorizontalExtent(), 74) << "as drawn, from the left of the rectangle";
}

TEST_F(ListPainterTest, FontsAreMadeOnceForTheFirstRow) {
  SearchUnder(kIdAndLine);
  Draw(-1);
  EXPECT_TRUE(canvas.Fonts.empty());
  Draw(0);
  Draw(1);
  LogFont normal;
  normal.Height = -12;
  LogFont bold = normal;
  bold.Weight = 700;
  EXPECT_EQ(canvas.Fonts, (std::vector<LogFont>{bold, normal}));
}

TEST_F(ListPainterTest, TheFontIsThatOfTheListWhenThePageWasMade) {
  Page page;
  page.mlstResultList = std::make_shared<forms::OwnerDrawList>();
  forms::Font font;
  font.Name = u"Courier";
  font.Size = 8.5;
  font.Italic = font.Underline = font.Strikethrough = font.Bold = true;
  font.Charset = 134;
  page.mlstResultList->SetFont(font);
  page.mlstResultList->AddItem(u"row", 1);
  ListPainter painter;
  painter.Setup(page);
  page.mlstResultList->SetFont({});
  page.mlstResultList->DrawItem.Raise(0, canvas, false, CanvasRect{0, 0, 9, 9});
  LogFont normal{u"Courier", -11, 400, true, true, true, 134};  // 8.5 points go to the even 8
  LogFont bold = normal;
  bold.Weight = 700;
  EXPECT_EQ(canvas.Fonts, (std::vector<LogFont>{bold, normal}));
  painter.TearDown();
}

TEST_F(ListPainterTest, ErrorsInPaintingAreQuiet) {
  SearchUnder(kIdAndLine);
  List().AddItem(u"no such match", 99);
  EXPECT_EQ(Draw(3), "fill 0,20-400,36 ffffff\n");
  EXPECT_EQ(Draw(7), "fill 0,20-400,36 ffffff\n");
  canvas.FailToFill = true;
  EXPECT_EQ(Draw(0),
            "text 5,20 404000 on ffffff '1:'\n"
            "text 25,20 0 on ffffff ''\n"
            "bold 25,20 0 on ffffff 'ab'\n"
            "text 49,20 0 on ffffff ' = ab'\n")
      << "the next statement goes on";
  canvas.FailToFill = false;
  // A match beyond place 32767 of its row has no place to be drawn at.
  UseStylesheet(u"<xsl:for-each select='//MatchItem'><xsl:text>" + std::u16string(20000, u'-') +
                u"</xsl:text></xsl:for-each>" + std::u16string(kIdAndLine));
  EXPECT_EQ(Draw(0), "fill 0,20-400,36 ffffff\n");
  EXPECT_EQ(Boxes(), "");
}

}  // namespace quorvane::test
