#include "ResultDocumentFixture.h"
//
#include <commctrl.h>

#include "platform/forms/Menu.h"
#include "platform/forms/Screen.h"
#include "windows/com/HostedDocument.h"
#include "windows/forms/Handles.h"

namespace quorvane::test {

using com::ComPtr;
using windows::WindowOf;

TEST_F(ResultDocumentTest, TakesTheStepsOfActivationInTheirOrder) {
  const HWND window = DocumentHandle();
  EXPECT_EQ(WindowOf(world.Doc().hwnd()), ::GetWindow(window, GW_CHILD));
  EXPECT_FALSE(::IsWindowVisible(window));
  Activate();
  EXPECT_EQ(site->Log(), "CanInPlaceActivate OnInPlaceActivate ShowObject");
  EXPECT_EQ(::GetAncestor(window, GA_PARENT), site->Window());
  EXPECT_TRUE(::IsWindowVisible(window));
  Activate(true);
  Activate(true);
  EXPECT_EQ(site->Log(), "OnUIActivate SetActiveObject OnFocus");
  EXPECT_TRUE(::IsChild(window, ::GetFocus()));
  const RECT rect{10, 20, 210, 120};
  place->SetObjectRects(&rect, &rect);
  RECT inside{};
  ::GetClientRect(WindowOf(world.Doc().hwnd()), &inside);
  EXPECT_EQ(inside.right, 200);
  EXPECT_EQ(inside.bottom, 100);
  object->Close(OLECLOSE_NOSAVE);
  EXPECT_EQ(site->Log(), "ClearActiveObject OnFocusLost OnUIDeactivate OnInPlaceDeactivate");
  EXPECT_EQ(DocumentHandle(), window);
  EXPECT_FALSE(::IsChild(site->Window(), window));
  Activate();
  EXPECT_TRUE(::IsChild(site->Window(), window));
}

TEST_F(ResultDocumentTest, ShowsItselfAgainWhenTheHostHasDestroyedItsWindow) {
  MakeRows(300);
  const HWND parked = ListHandle();
  EXPECT_TRUE(::IsWindow(parked));
  Activate(true);
  EXPECT_EQ(ListHandle(), parked);
  Key(VK_END);
  const int top = TopRow();
  EXPECT_GT(top, 200);
  for (int time = 0; time < 2; ++time) {
    const HWND before = ListHandle();
    site->DestroyWindow();
    EXPECT_FALSE(::IsWindow(before));
    EXPECT_TRUE(::IsWindow(ListHandle()));
    EXPECT_TRUE(::IsWindow(WindowOf(world.Doc().hwnd())));
    world.List().AddItem(u"while away", 1);
    site->MakeWindow();
    Activate();
    EXPECT_TRUE(::IsWindowVisible(ListHandle()));
    EXPECT_EQ(Ask(LB_GETCOUNT), 301 + time);
    EXPECT_EQ(Ask(LB_GETCURSEL), 299);
    EXPECT_EQ(TopRow(), top);
  }
}

TEST_F(ResultDocumentTest, OutlivesAndIsOutlivedByTheAddIn) {
  MakeRows(5);
  Activate(true);
  const HWND list = ListHandle();
  world.Pages().mcolPages->RemoveAll();
  EXPECT_FALSE(::IsWindow(list));
  MakeRows(3);
  place.Reset();
  object.Reset();
  control.Reset();
  EXPECT_EQ(world.Doc().hwnd(), 0);
  EXPECT_EQ(world.Active().ListHWnd(), 0);
  MakeRows(1);
  EXPECT_EQ(world.List().ListCount(), 4);
}

TEST_F(ResultDocumentTest, IsFoundBehindWhateverTheHostHandsOut) {
  const auto inner = std::dynamic_pointer_cast<vbide::Document>(Globals::gobjResultDoc);
  EXPECT_EQ(com::DocumentBehind(object.Get()), inner);
  EXPECT_EQ(com::DocumentBehind(site->Client()), inner);
  EXPECT_EQ(com::DocumentBehind(nullptr), inner);
}

TEST_F(ResultDocumentTest, CountsRowsIn32Bits) {
  constexpr int kRows = 100000;
  Activate(true);
  int drawn = 0;
  MakeRows(kRows);
  const Subscription counts = world.List().DrawItem.Subscribe([&](auto&&...) { ++drawn; });
  Key(VK_END);
  EXPECT_EQ(Ask(LB_GETCOUNT), kRows);
  EXPECT_EQ(Ask(LB_GETCURSEL), kRows - 1);
  const int page = ListView().RowsOnScreen();
  EXPECT_EQ(TopRow(), kRows - page);
  ::UpdateWindow(ListHandle());
  EXPECT_LE(drawn, page + 1);
  EXPECT_EQ(TextOf(70000), u"row 70000");
  const RECT third = RectOf(kRows - page + 2);
  EXPECT_EQ(third.top, 2 * (third.bottom - third.top));
  EXPECT_EQ(Ask(LB_ITEMFROMPOINT, 0, MAKELPARAM(10, third.top + 3)), kRows - page + 2);
  EXPECT_EQ(Ask(LB_ITEMFROMPOINT, 0, MAKELPARAM(10, -5)), kRows);
  EXPECT_EQ(Ask(LB_GETTEXTLEN, kRows), LB_ERR);
  EXPECT_EQ(Ask(LB_GETITEMRECT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&drawn)), LB_ERR);

  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = SIF_ALL;
  ::GetScrollInfo(ListHandle(), SB_VERT, &info);
  EXPECT_EQ(info.nMax, kRows - 1);
  EXPECT_EQ(info.nPos, kRows - page);
}

TEST_F(ResultDocumentTest, KeysAndWheelMove) {
  MakeRows(1000);
  Activate(true);
  const int page = ListView().RowsOnScreen();
  ASSERT_GT(page, 5);
  struct {
    int key;
    int row;
    int top;
  } const steps[] = {
      {VK_DOWN, 0, 0},
      {VK_DOWN, 1, 0},
      {VK_UP, 0, 0},
      {VK_UP, 0, 0},
      {VK_NEXT, page, 1},
      {VK_NEXT, 2 * page, page + 1},
      {VK_PRIOR, page, page},
      {VK_END, 999, 1000 - page},
      {VK_DOWN, 999, 1000 - page},
      {VK_HOME, 0, 0},
      {VK_RIGHT, 0, 0},
  };
  for (const auto& step : steps) {
    Key(step.key);
    EXPECT_EQ(Ask(LB_GETCURSEL), step.row) << step.key;
    EXPECT_EQ(TopRow(), step.top) << step.key;
  }
  const auto turn = [&](int wheel) { Ask(WM_MOUSEWHEEL, static_cast<WPARAM>(wheel * 0x10000), 0); };
  turn(-WHEEL_DELTA * 2 / 3);
  EXPECT_EQ(TopRow(), 0);
  turn(-WHEEL_DELTA * 2 / 3);
  EXPECT_EQ(TopRow(), 3);
  turn(WHEEL_DELTA);
  EXPECT_EQ(TopRow(), 0);
  Ask(WM_VSCROLL, SB_PAGEDOWN);
  EXPECT_EQ(TopRow(), page);
  world.List().SetHorizontalExtent(2000);
  Pump();
  Key(VK_RIGHT);
  EXPECT_GT(ListView().Place().across, 0);
  EXPECT_EQ(TopRow(), page);
  Key(VK_ESCAPE);
  EXPECT_FALSE(Globals::gobjToolWindow->Visible());
}

TEST_F(ResultDocumentTest, TheMouseSelectsShowsAndPreviews) {
  Activate();
  EXPECT_EQ(world.Search(u"total"), "");
  Pump();
  const RECT second = RectOf(1);
  Press(ListHandle(), WM_LBUTTONDOWN, {second.left + 20, second.top + 3});
  Press(ListHandle(), WM_LBUTTONUP, {second.left + 20, second.top + 3});
  EXPECT_EQ(world.List().ListIndex(), 1);
  EXPECT_EQ(::GetFocus(), ListHandle());
  EXPECT_TRUE(world.List().HasFocus());
  Press(ListHandle(), WM_LBUTTONDBLCLK, {second.left + 20, second.top + 3});
  EXPECT_EQ(world.Selection(), "Plan 3,3-3,8");

  world.Doc().mnuCodePreview.Press();
  world.Log();
  const auto hover = [&](int row) { Press(ListHandle(), WM_MOUSEMOVE, {30, RectOf(row).top + 2}); };
  forms::TheScreen() = {};
  hover(0);
  EXPECT_GT(forms::TheScreen().Width, 0) << "that of the pointer";
  hover(2);
  hover(2);
  EXPECT_EQ(world.Log(), "update:1 pos update:3 pos");
  Press(ListHandle(), WM_MOUSEMOVE, {30, RectOf(2).bottom + 20});
  EXPECT_EQ(world.Log(), "");
}

TEST_F(ResultDocumentTest, TabsAreMadeAndClosed) {
  Activate(true);
  PressTab(WM_LBUTTONDOWN, u"AddNewTab");
  PressTab(WM_LBUTTONDOWN, u"AddNewTab");
  PressTab(WM_LBUTTONDOWN, u"AddNewTab");
  const HWND third = ListHandle();
  EXPECT_EQ(::GetFocus(), third);
  PressTab(WM_LBUTTONDOWN, u"Search1");
  EXPECT_FALSE(::IsWindowVisible(third));
  EXPECT_TRUE(::IsWindowVisible(ListHandle()));
  EXPECT_EQ(::GetFocus(), ListHandle());

  PressTab(WM_LBUTTONDOWN, u"Search2", true);
  EXPECT_EQ(world.Pages().mcolPages->Count(), 3) << "the press alone closes nothing";
  PressTab(WM_LBUTTONUP, u"Search2", true);
  EXPECT_EQ(world.Pages().mcolPages->Count(), 2);
  EXPECT_EQ(world.Doc().vbalDTabControl1->SelectedTab()->Key(), u"Search1");

  world.Pages().SetBarEnabled(false);
  Pump();
  EXPECT_FALSE(::IsWindowEnabled(Bar().Handle()));
  PressTab(WM_MBUTTONDOWN, u"Search3");
  EXPECT_EQ(world.Pages().mcolPages->Count(), 2);
  world.Pages().SetBarEnabled(true);
  PressTab(WM_MBUTTONDOWN, u"Search3");
  EXPECT_EQ(world.Pages().mcolPages->Count(), 1);
  PressTab(WM_LBUTTONDOWN, u"Search1");
  PressTab(WM_LBUTTONDBLCLK, u"Search1");
  EXPECT_EQ(world.Pages().mcolPages->Count(), 0);
  EXPECT_EQ(::SendMessageW(Bar().Handle(), TCM_GETITEMCOUNT, 0, 0), 1);
  EXPECT_TRUE(::IsChild(DocumentHandle(), ::GetFocus()));
}

TEST_F(ResultDocumentTest, OffersItsKeysAndNoOthersToTheHost) {
  MakeRows(10);
  Activate(true);
  const ComPtr<IOleInPlaceActiveObject> active = control.As<IOleInPlaceActiveObject>();
  MSG key{};
  key.hwnd = ListHandle();
  key.message = WM_KEYDOWN;
  key.wParam = VK_DOWN;
  EXPECT_EQ(active->TranslateAccelerator(&key), S_OK);
  EXPECT_EQ(world.List().ListIndex(), 0);
  key.wParam = VK_TAB;
  EXPECT_EQ(active->TranslateAccelerator(&key), S_OK);
  EXPECT_EQ(::GetFocus(), Bar().Handle());
  key.wParam = VK_F5;
  EXPECT_EQ(active->TranslateAccelerator(&key), S_FALSE);
  key.wParam = VK_DOWN;
  key.hwnd = site->Window();
  EXPECT_EQ(active->TranslateAccelerator(&key), S_FALSE);
}

}  // namespace quorvane::test
