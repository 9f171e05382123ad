#include <utility>

#include "ViewsFixture.h"
#include "addin/core/Globals.h"
#include "addin/dialogs/frmCodePreview.h"
#include "windows/dialogs/CodeMeasurer.h"

namespace quorvane::test {
namespace {

constexpr Color kRed = 0xFF;
constexpr Color kBlue = 0xFF0000;

class PreviewWindowTest : public ViewsTest {
 protected:
  PreviewWindowTest() : form(dynamic_cast<frmCodePreview&>(*forms::TheForms().Instance(u"frmCodePreview"))) {
    form.Load();
  }

  /// As the form fills itself: the match in red and struck through, in blue what comes in its place.
  void Fill(const std::u16string& before, const std::u16string& match, const std::u16string& instead,
            const std::u16string& behind) {
    forms::RichTextBox& box = *form.rtPreview;
    const auto start = static_cast<std::int32_t>(before.size());
    box.SetText({});
    box.SetSelColor(0);
    box.SetText(before + match + behind);
    box.SetSelStart(start);
    box.SetSelLength(static_cast<std::int32_t>(match.size()));
    box.SetSelColor(kRed);
    box.SetSelStrikeThru(true);
    box.SetSelStart(start + static_cast<std::int32_t>(match.size()));
    box.SetSelStrikeThru(false);
    box.SetSelColor(kBlue);
    box.SetSelText(instead);
  }
  HWND Window() { return WindowOf(form); }
  void Show(std::int32_t width, std::int32_t height) {
    form.SetSize(width, height);
    form.Move(100, 100);
    form.TimerSetVisible.SetEnabled(false);
    form.Show();
    Serve();
  }
  /// The rows of the window, from the top, in which a pixel has that colour: the first and the last; -1 for none.
  std::pair<int, int> RowsOf(Color color) {
    const HWND inside = ::GetWindow(Window(), GW_CHILD);
    ::UpdateWindow(inside);
    RECT room{};
    ::GetClientRect(inside, &room);
    const HDC screen = ::GetDC(inside);
    std::pair<int, int> rows{-1, -1};
    for (int y = 0; y < room.bottom; ++y) {
      for (int x = 0; x < room.right; ++x) {
        if (::GetPixel(screen, x, y) != color) continue;
        if (rows.first < 0) rows.first = y;
        rows.second = y;
        break;
      }
    }
    ::ReleaseDC(inside, screen);
    return rows;
  }

  frmCodePreview& form;
  quorvane::windows::CodeMeasurer measurer;
};

TEST_F(PreviewWindowTest, ShowsItsColoursAndTakesNoFocus) {
  Fill(u"Sub A()\r\n\tx = ", u"oldword", u"newword", u" + 1\r\nEnd Sub");
  Show(300, 80);
  EXPECT_TRUE(::IsWindowVisible(Window()));
  EXPECT_EQ(::GetFocus(), hostBox);
  ClickAt(Window(), {5, 5});
  EXPECT_EQ(::GetFocus(), hostBox);
  EXPECT_EQ(::GetForegroundWindow(), mainWindow);
  EXPECT_EQ(TextOf(::GetWindow(Window(), GW_CHILD)), u"Sub A()\r\n\tx = oldwordnewword + 1\r\nEnd Sub");
  const auto red = RowsOf(kRed);
  const auto blue = RowsOf(kBlue);
  const int line = measurer.LineHeight(form.Font());
  EXPECT_GT(red.first, line - 2);
  EXPECT_LT(red.second, 2 * line + 6);
  EXPECT_GE(blue.first, red.first - 2);
  Fill(u"a ", u"b", u"", u"");
  Serve();
  EXPECT_LT(RowsOf(kRed).second, line + 6) << "it follows its model";
  EXPECT_EQ(RowsOf(kBlue).first, -1);
}

/// Of a text that is too high the part with the match is seen.
TEST_F(PreviewWindowTest, TheMatchIsSeenInATextOfManyLines) {
  std::u16string many;
  for (int i = 0; i < 200; ++i) many += u"line\r\n";
  Fill(many, u"match", u"", u"\r\n" + many);
  Show(300, 90);
  const auto red = RowsOf(kRed);
  EXPECT_GT(red.first, 20);
  EXPECT_LT(red.second, 75);
}

TEST_F(PreviewWindowTest, MeasuresWhatItShows) {
  const forms::Font& font = form.Font();
  const auto width = [&](std::u16string_view line) { return measurer.LineWidth(font, line); };
  EXPECT_EQ(width(u""), 0);
  EXPECT_EQ(width(u"iiii"), width(u"MMMM")) << "code is read in columns";
  EXPECT_EQ(width(u"\t"), 4 * width(u" "));
  EXPECT_EQ(width(u"ab\t"), 4 * width(u" "));
  EXPECT_EQ(width(u"abcd\tx"), 8 * width(u" ") + width(u"x"));
  EXPECT_GT(width(std::u16string(100000, u'x')), 400000) << "beyond 16 bits";
}

TEST_F(PreviewWindowTest, StaysAwayWhileTheHostWaitsForAnAnswer) {
  Fill(u"a ", u"b", u"", u"");
  ::EnableWindow(mainWindow, FALSE);
  Show(100, 50);
  EXPECT_FALSE(::IsWindowVisible(Window()));
  platform.windows.ShowWindow(form.hWnd(), 4);
  EXPECT_FALSE(::IsWindowVisible(Window())) << "whoever asks";
  ::EnableWindow(mainWindow, TRUE);
  form.Hide();
  form.Show();
  EXPECT_TRUE(::IsWindowVisible(Window()));
  Walk(
      u"frmAbout", [] { forms::TheForms().Instance(u"frmAbout")->Show(forms::FormModal::Modal); },
      [&] {
        EXPECT_FALSE(::IsWindowVisible(Window())) << "it was there before";
        Press(VK_ESCAPE);
      });
}

}  // namespace
}  // namespace quorvane::test
