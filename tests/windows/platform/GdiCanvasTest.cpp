#include "windows/forms/BufferedPaint.h"
#include "windows/forms/GdiCanvas.h"
#include "windows/platform/PlatformFixture.h"

namespace quorvane::test {

constexpr Color kRed = 0x0000FF;
constexpr Color kGreen = 0x00FF00;
constexpr Color kBlue = 0xFF0000;

class GdiCanvasTest : public PlatformFixture {
 protected:
  GdiCanvasTest() {
    const HDC screen = ::GetDC(nullptr);
    dc_ = ::CreateCompatibleDC(screen);
    bitmap_ = ::CreateCompatibleBitmap(screen, 400, 100);
    ::ReleaseDC(nullptr, screen);
    before_ = ::SelectObject(dc_, bitmap_);
    canvas = std::make_unique<windows::GdiCanvas>(dc_);
    canvas->FillRect({0, 0, 400, 100}, kRed);
  }
  ~GdiCanvasTest() override {
    canvas.reset();
    ::SelectObject(dc_, before_);
    ::DeleteObject(bitmap_);
    ::DeleteDC(dc_);
  }

  Color At(int x, int y) const { return ::GetPixel(dc_, x, y); }
  bool Holds(const CanvasRect& area, Color color) const {
    for (int y = area.Top; y < area.Bottom; ++y) {
      for (int x = area.Left; x < area.Right; ++x) {
        if (At(x, y) == color) return true;
      }
    }
    return false;
  }

  std::unique_ptr<windows::GdiCanvas> canvas;

 private:
  HDC dc_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ before_ = nullptr;
};

TEST_F(GdiCanvasTest, DrawsWithItsColoursAndNowhereElse) {
  canvas->FillRect({10, 10, 20, 20}, kBlue);
  EXPECT_EQ(At(10, 10), kBlue);
  EXPECT_EQ(At(19, 19), kBlue);
  EXPECT_EQ(At(20, 20), kRed) << "right and bottom lie one after the last";
  LogFont heavy;  // strokes so broad that some of it has the colour itself
  heavy.FaceName = u"Arial";
  heavy.Height = -40;
  heavy.Weight = 700;
  canvas->SelectFont(canvas->CreateFont(heavy));
  canvas->SetTextColor(kBlue);
  canvas->SetBkColor(kGreen);
  const std::int32_t width = canvas->TextWidth(u"MMM");
  canvas->TextOut(50, 30, u"MMM");
  EXPECT_TRUE(Holds({50, 30, 50 + width, 70}, kGreen));
  EXPECT_TRUE(Holds({50, 30, 50 + width, 70}, kBlue));
  EXPECT_FALSE(Holds({51 + width, 0, 400, 100}, kGreen));
  EXPECT_FALSE(Holds({50, 0, 400, 30}, kGreen));
}

TEST_F(GdiCanvasTest, WidthsAddUpAndControlCharactersAreBlanks) {
  const std::int32_t one = canvas->TextWidth(u"W");
  EXPECT_EQ(canvas->TextWidth(u""), 0);
  EXPECT_EQ(canvas->TextWidth(std::u16string(10000, u'W')), 10000 * one);
  EXPECT_EQ(canvas->TextWidth(u"\t"), canvas->TextWidth(u" "));
  EXPECT_EQ(canvas->TextWidth(u"a&b"), canvas->TextWidth(u"a") + canvas->TextWidth(u"&") + canvas->TextWidth(u"b"));
}

TEST_F(GdiCanvasTest, FontsAreSelectedAndGivenBack) {
  LogFont wanted;
  wanted.FaceName = u"Arial";
  wanted.Height = -20;
  const std::int32_t own = canvas->TextWidth(u"Match");
  const auto plain = canvas->CreateFont(wanted);
  wanted.Weight = 700;
  const auto bold = canvas->CreateFont(wanted);
  EXPECT_EQ(canvas->SelectFont(plain), nullptr);
  const std::int32_t width = canvas->TextWidth(u"Match");
  EXPECT_EQ(canvas->SelectFont(bold), plain);
  EXPECT_GT(canvas->TextWidth(u"Match"), width);
  EXPECT_EQ(canvas->SelectFont(nullptr), bold);
  EXPECT_EQ(canvas->TextWidth(u"Match"), own);
}

}  // namespace quorvane::test
