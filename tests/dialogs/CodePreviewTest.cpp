#include <gtest/gtest.h>

#include "DialogWorld.h"
#include "addin/dialogs/frmCodePreview.h"
#include "platform/forms/Forms.h"
#include "platform/forms/OwnerDrawList.h"
#include "platform/forms/Screen.h"

namespace quorvane {
namespace {

using test::Group;
using test::Raised;

constexpr WindowHandle kPreview = 77;
constexpr WindowHandle kHost = 500;
constexpr WindowHandle kList = 900;
constexpr WindowHandle kDocument = 901;
constexpr WindowHandle kOther = 902;

/// "before {red-:old}{blue:new} after": colours by name, "-" where the text is struck through.
std::string Shown(const forms::RichTextBox& box) {
  std::string text;
  for (const auto& run : box.Runs()) {
    const std::u16string part =
        box.Text().substr(static_cast<std::size_t>(run.Start), static_cast<std::size_t>(run.Length));
    const std::string color = run.Color == 0xFF ? "red" : run.Color == 0xFF0000 ? "blue" : "";
    const std::string look = color + (run.StrikeThru ? "-" : "");
    text += look.empty() ? ToUtf8(part) : "{" + look + ":" + ToUtf8(part) + "}";
  }
  return text;
}

/// A page with matches whose list lies at 100,100 to 300,200, the mouse over it and the host in front.
class CodePreviewTest : public test::DialogFixture {
 protected:
  CodePreviewTest() {
    OpenGroup(Group{}.Project(u"P").Module(u"M", u"one\r\nA foo1 Foo2 b\r\nthree"));
    Condition(gsAllProjects, gsCommon, u"foo");
    Globals::gobjPageManager->AddNewPage();
    SearchAgain();
    ActivePage()->mlstResultList->SetHwnd(kList);
    document->SetHwnd(kDocument);
    toolWindow->visible = true;
    windows.Windows[kList] = {u"", u"", kDocument, {100, 100, 300, 200}};
    windows.Windows[kDocument] = {u"", u"", kHost, {0, 0, 400, 400}};
    windows.Windows[kPreview] = {u"", u"", 0, {310, 0, 400, 90}};
    windows.Mouse = {150, 150};
    windows.Foreground = kHost;
  }

  frmCodePreview& Preview() { return dynamic_cast<frmCodePreview&>(*forms::TheForms().Instance(u"frmCodePreview")); }
  void SearchAgain() { ActivePage()->mobjTask->Run(kTaskSearch); }
  void Update(std::int32_t match = 1) {
    Preview().Update(ActivePage()->mcolResult->Item(match), *ActivePage()->mobjCondSnap);
  }
};

TEST_F(CodePreviewTest, WhatItShowsByModeAndCondition) {
  Setting().mintRelativeLineCount = 0;
  for (const test::Row& row : test::Rows("dialogs/CodePreview.rows", "Shown")) {
    Condition(gsAllProjects, static_cast<gsMode>(row.Number(2)), row.Text(3));
    Setting().mblnMatchCase = row.Bytes(1) == "case";
    Setting().mstrReplaceStr = u"not yet typed";
    SearchAgain();
    Preview().SetMode(row.Number(0));
    Setting().mstrReplaceStr = row.Text(4);
    Update();
    EXPECT_EQ(Shown(*Preview().rtPreview), row.Bytes(5)) << row.Where();
    EXPECT_EQ(Preview().rtPreview->SelLength(), row.Number(0) == 0 ? 3 : 0) << row.Where();
  }
}

TEST_F(CodePreviewTest, MultilineHoldsInsideAMatchWhateverTheCondition) {
  OpenGroup(Group{}.Project(u"P").Module(u"M", u"aa\r\nab\r\nb"));
  Condition(gsAllProjects, gsRegular, u"^a[^b]*|^b");
  SearchAgain();
  Preview().SetMode(2);
  Setting().mstrReplaceStr = u"<$&>";
  Update();
  EXPECT_EQ(Shown(*Preview().rtPreview), "{red-:aa\r\na}{blue:<aa\r\na>}b\r\nb");
}

TEST_F(CodePreviewTest, LinesAroundTheMatch) {
  OpenGroup(Group{}.Project(u"P").Module(u"M", u"1\r\n2\r\nfoo\r\n4\r\n5"));
  SearchAgain();
  Preview().SetMode(1);
  for (const auto& [lines, shown] :
       {std::pair{0, "{red:foo}"}, {1, "2\r\n{red:foo}\r\n4"}, {12, "1\r\n2\r\n{red:foo}\r\n4\r\n5"}}) {
    Setting().mintRelativeLineCount = static_cast<std::int16_t>(lines);
    Update();
    EXPECT_EQ(Shown(*Preview().rtPreview), shown);
  }
}

/// Ten pixels a character, twenty a line.
class WideMeasurer final : public forms::TextMeasurer {
 public:
  std::int32_t LineHeight(const forms::Font& font) const override {
    return font.Name == u"宋体" && font.Size == 9 ? 20 : 0;
  }
  std::int32_t LineWidth(const forms::Font&, std::u16string_view line) const override {
    return 10 * static_cast<std::int32_t>(line.size());
  }
};

TEST_F(CodePreviewTest, SizeAndItsLimits) {
  Preview().SetMode(2);
  Setting().mstrReplaceStr = u"12345";
  Preview().SetMeasurer(std::make_shared<WideMeasurer>());
  EXPECT_EQ(Raised([&] { Preview().SetMeasurer(nullptr); }), 91);
  Preview().Move(0, 10);
  Update();
  // 3 lines and 18 characters: 900 * 1.1 + 100 and 2700 * 1.3 + 100 twips, in whole pixels.
  EXPECT_EQ(Preview().Height(), 73);
  EXPECT_EQ(Preview().Width(), 241);
  EXPECT_EQ(Preview().rtPreview->Height(), 73 * 15 - 20);
  EXPECT_EQ(Preview().rtPreview->Width(), 241 * 15 - 20);
  EXPECT_EQ(Preview().Top(), 10);
  for (const auto& [left, width] : {std::pair{900, 100}, {1040, 0}}) {
    Preview().SetSize(1, 1);
    Preview().Move(left, -30);
    EXPECT_EQ(Preview().Top(), -30) << "moving has no limits";
    Update();
    EXPECT_EQ(Preview().Top(), 0);
    EXPECT_EQ(Preview().Width(), width);
    EXPECT_EQ(Preview().rtPreview->Width(), std::max(width * 15 - 20, 0));
  }
  forms::TheScreen().Left = 1000;  // of two screens side by side, the right one
  forms::TheScreen().Top = -50;
  Preview().Move(1900, -70);
  Update();
  EXPECT_EQ(Preview().Top(), -50);
  EXPECT_EQ(Preview().Width(), 100);
}

TEST_F(CodePreviewTest, ShowsItselfAboveAndRightOfTheMouseWithoutTheFocus) {
  Preview().SetMode(1);
  Preview().Hide();
  Update();
  windows.Calls.clear();
  Preview().UpdatePreviewPos();
  EXPECT_EQ(windows.Calls, (std::vector<std::string>{"ShowWindow 77 4", "SetWindowPos 77 0 0 0 0 0 19"}));
  EXPECT_TRUE(Preview().Visible());
  EXPECT_EQ(Preview().Left(), 190);
  EXPECT_EQ(Preview().Top(), 150 - Preview().Height());
  windows.Foreground = kOther;
  windows.Mouse = {120, 120};
  Preview().UpdatePreviewPos();
  EXPECT_EQ(Preview().Left(), 190) << "not allowed";
}

TEST_F(CodePreviewTest, WhenItMayBeOnTheScreen) {
  Preview().SetMode(1);
  EXPECT_TRUE(Preview().CanShow());
  const auto mouse = [this](std::int32_t x, std::int32_t y) { return [this, x, y] { windows.Mouse = {x, y}; }; };
  const struct {
    const char* what;
    std::function<void()> change;
    bool allowed;
  } rows[] = {
      {"the list is in front", [&] { windows.Foreground = kList; }, true},
      {"the preview is in front", [&] { windows.Foreground = kPreview; }, true},
      {"the mouse is on the preview", mouse(350, 50), true},
      {"the same while it is hidden", [&] { Preview().Hide(); }, false},
      {"the mouse is on the edge of the list", mouse(100, 150), false},
      {"back", mouse(101, 199), true},
      {"another program is in front", [&] { windows.Foreground = kOther; }, false},
      {"no window is in front", [&] { windows.Foreground = 0; }, false},
      {"back", [&] { windows.Foreground = kDocument; }, true},
      {"the tool window is closed", [&] { toolWindow->visible = false; }, false},
      {"back", [&] { toolWindow->visible = true; }, true},
      {"off", [&] { Preview().SetMode(0); }, false},
      {"on", [&] { Preview().SetMode(2); }, true},
      {"no results", [&] { ActivePage()->mcolResult->Clear(); }, false},
  };
  for (const auto& row : rows) {
    row.change();
    EXPECT_EQ(Preview().CanShow(), row.allowed) << row.what;
  }
  Globals::gobjPageManager->mcolPages->RemoveAll();
  EXPECT_EQ(Raised([&] { Preview().CanShow(); }), 91);
  EXPECT_EQ(Raised([&] { Preview().UpdatePreviewPos(); }), 91);
}

TEST_F(CodePreviewTest, TheTimerFollowsTheMouseAndGivesUpWithoutAPage) {
  const auto running = platform.loop.RunningTimers();
  Preview().SetMode(2);
  EXPECT_EQ(Preview().Mode(), 2);
  EXPECT_TRUE(Preview().Visible());
  Update();
  const std::string text = Shown(*Preview().rtPreview);
  windows.Calls.clear();
  std::string seen;
  const auto look = [&] {
    platform.loop.Advance(200);
    seen += Preview().Visible() ? "+" : "-";
  };
  look();
  windows.Mouse = {0, 0};
  look();
  windows.Mouse = {150, 150};
  look();
  Preview().LoseFocus();
  EXPECT_FALSE(Preview().Visible());
  look();
  windows.Foreground = kOther;
  look();
  windows.Foreground = kHost;
  look();
  EXPECT_EQ(seen, "+-++-+");
  EXPECT_EQ(windows.Calls, (std::vector<std::string>{"ShowWindow 77 4", "ShowWindow 77 0", "ShowWindow 77 4",
                                                     "ShowWindow 77 4", "ShowWindow 77 0", "ShowWindow 77 4"}));
  EXPECT_EQ(Shown(*Preview().rtPreview), text);

  const auto pages = std::exchange(Globals::gobjPageManager, nullptr);
  look();
  EXPECT_FALSE(Preview().TimerSetVisible.Enabled()) << "without a message";
  EXPECT_TRUE(Preview().Visible()) << "stays as it was";
  Globals::gobjPageManager = pages;
  Preview().SetMode(1);
  EXPECT_EQ(platform.loop.RunningTimers(), running + 1);
  Preview().SetMode(0);
  EXPECT_EQ(platform.loop.RunningTimers(), running);
  EXPECT_FALSE(Preview().Visible());
}

}  // namespace
}  // namespace quorvane
