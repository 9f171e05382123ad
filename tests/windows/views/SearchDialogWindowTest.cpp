#include <cstring>

#include "ViewsFixture.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/StringCollection.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Text.h"

namespace quorvane::test {
namespace {

class SearchDialogWindowTest : public ViewsTest {
 protected:
  SearchDialogWindowTest() {
    for (const char16_t* entry : {u"first", u"second", u"firstborn"}) Setting().mcolSearchHistory.Add(entry);
    ShowSearchDialog();
  }

  GlobalSetting& Setting() { return *Globals::gobjSetting; }
  frmSearchDialog& D() { return SearchDialog(); }
  /// The box in which the user types.
  static HWND Edit(const forms::Control& combo) { return ::FindWindowExW(WindowOf(combo), nullptr, L"Edit", nullptr); }
  std::string Active() {
    const auto control = D().ActiveControl();
    return control ? ToUtf8(control->Name()) : "none";
  }
  /// "text start+length" of the model and, behind "/", of the box when that differs.
  std::string Find() {
    const forms::ComboBox& model = *D().cmbSearch;
    const auto show = [](const std::u16string& text, std::int32_t start, std::int32_t length) {
      return ToUtf8(text) + " " + std::to_string(start) + "+" + std::to_string(length);
    };
    DWORD start = 0;
    DWORD end = 0;
    ::SendMessageW(Edit(model), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    const std::string told = show(model.Text(), model.SelStart(), model.SelLength());
    const std::string shown =
        show(TextOf(Edit(model)), static_cast<std::int32_t>(start), static_cast<std::int32_t>(end - start));
    return shown == told ? told : told + " / " + shown;
  }
  static bool IsTicked(const forms::Control& box, WPARAM state = BST_CHECKED) {
    return ::SendMessageW(WindowOf(box), BM_GETCHECK, 0, 0) == static_cast<LRESULT>(state);
  }
  bool IsListOpen() { return ::SendMessageW(WindowOf(*D().cmbSearch), CB_GETDROPPEDSTATE, 0, 0) != 0; }
  /// Gives keys to the menu that `open` opens, which serves the queue itself; false when none opened.
  bool InMenu(const std::function<void()>& open, std::initializer_list<WORD> keys) {
    int ticks = 0;
    bool came = false;
    const MessageLoop::TimerId timer = platform.loop.StartTimer(50, [&] {
      GUITHREADINFO info{};
      info.cbSize = sizeof(info);
      ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
      if (++ticks == kLongestMenu) ::EndMenu();
      if (came || (info.flags & GUI_INMENUMODE) == 0) return;
      came = true;
      for (const WORD key : keys) Send(key);
    });
    open();
    ServeUntil([&] { return ticks > 3; });
    platform.loop.StopTimer(timer);
    return came && ticks < kLongestMenu;
  }

  static constexpr int kLongestMenu = 60;
};

TEST_F(SearchDialogWindowTest, IsAChildOfTheHostWithATitleBarAndTheHostsKeysStayTheHosts) {
  const HWND window = WindowOf(D());
  EXPECT_EQ(::GetAncestor(window, GA_PARENT), mainWindow);
  EXPECT_EQ(::GetWindowLongW(window, GWL_STYLE) & WS_CAPTION, WS_CAPTION);
  EXPECT_EQ(TextOf(window), u"Quorvane");
  EXPECT_EQ(TextOf(WindowOf(*D().cmdSearch)), u"&Search");
  Type(u"a&b");
  EXPECT_EQ(Setting().mstrSearchStr, u"a&b");
  EXPECT_EQ(Find(), "a&b 3+0");
  EXPECT_EQ(TextOf(hostBox), u"code");
  Press(VK_ESCAPE);
  EXPECT_FALSE(D().Visible());
  EXPECT_FALSE(::IsWindowVisible(window));
  Type(u"x");
  EXPECT_EQ(TextOf(hostBox), u"xcode");
  EXPECT_EQ(Setting().mstrSearchStr, u"a&b");
  ShowSearchDialog();
  EXPECT_EQ(::GetFocus(), Edit(*D().cmbSearch));
  Press(VK_F4, {VK_MENU});
  EXPECT_FALSE(D().Visible());
  EXPECT_EQ(::GetFocus(), hostBox);
}

TEST_F(SearchDialogWindowTest, TheTextIsTheModels) {
  D().cmbSearch->SetText(u"later");
  EXPECT_EQ(Find(), "later 0+0");
  Type(u"s");
  EXPECT_EQ(Find(), "slater 1+0");
  Press('A', {VK_CONTROL});
  Type(u"t");
  EXPECT_EQ(Find(), "t 1+0");
  D().cmbSearch->SetText(u"one\r\ntwo");
  EXPECT_EQ(Setting().mstrSearchStr, u"onetwo");
  EXPECT_EQ(D().cmbSearch->Text(), u"one\r\ntwo") << "what the box makes of line breaks is not the user's doing";
}

TEST_F(SearchDialogWindowTest, TheListIsPickedFromAndHasItsKeysToItself) {
  Type(u"fir");
  Press(VK_DOWN, {VK_MENU});
  EXPECT_TRUE(IsListOpen());
  Press(VK_ESCAPE);
  EXPECT_FALSE(IsListOpen());
  EXPECT_TRUE(D().Visible()) << "Esc was the list's";
  Press(VK_DOWN, {VK_MENU});
  ::SendMessageW(WindowOf(*D().cmbSearch), CB_SETCURSEL, 0, 0);
  Press(VK_DOWN);
  Press(VK_RETURN);
  EXPECT_FALSE(IsListOpen());
  EXPECT_EQ(D().cmbSearch->Text(), u"second");
  EXPECT_EQ(TextOf(Edit(*D().cmbSearch)), u"second");
  EXPECT_EQ(Setting().mstrSearchStr, u"second");
  EXPECT_EQ(D().cmbSearch->ListIndex(), 1);
  D().cmbSearch->RemoveItem(1);
  EXPECT_EQ(::SendMessageW(WindowOf(*D().cmbSearch), CB_GETCOUNT, 0, 0), 2);
  EXPECT_EQ(TextOf(Edit(*D().cmbSearch)), u"");
}

TEST_F(SearchDialogWindowTest, TabGoesRoundAndArrowsChooseAnOption) {
  Type(u"x");
  std::string order;
  for (int i = 0; i < 8; ++i) {
    order += Active() + " ";
    Press(VK_TAB);
  }
  EXPECT_EQ(order, "cmbSearch cmbReplace optArea(1) optMode(0) chkMatchCase chkWholeWord chkIgnoreComment cmdSearch ");
  EXPECT_EQ(Active(), "cmbSearch");
  Press(VK_TAB, {VK_SHIFT});
  EXPECT_EQ(Active(), "cmdSearch");
  ::SetFocus(WindowOf(*D().optModeButtons[gsCommon]));
  Press(VK_DOWN);
  Press(VK_DOWN);
  EXPECT_EQ(Setting().menumMode, gsRegular);
  EXPECT_TRUE(IsTicked(*D().optModeButtons[gsRegular]));
  EXPECT_FALSE(IsTicked(*D().optModeButtons[gsCommon]));
  EXPECT_EQ(Active(), "optMode(2)");
  EXPECT_TRUE(::IsWindowEnabled(WindowOf(*D().cmdReplace)));
  EXPECT_EQ(TextOf(WindowOf(*D().chkWholeWord)), u"Single line");
}

TEST_F(SearchDialogWindowTest, MarkedLettersAndClicksReachTheModel) {
  Press('L', {VK_MENU});
  EXPECT_EQ(Active(), "cmbReplace");
  EXPECT_EQ(::GetFocus(), Edit(*D().cmbReplace));
  Press('X', {VK_MENU});
  EXPECT_EQ(Setting().menumMode, gsRegular);
  Setting().menumIgnoreComment = gsIncludeComment;
  D().MemToScreen();
  for (const WPARAM state : {BST_CHECKED, BST_INDETERMINATE, BST_UNCHECKED}) {
    Press('I', {VK_MENU});
    EXPECT_EQ(Setting().menumIgnoreComment, static_cast<gsCommentStat>(state));
    EXPECT_TRUE(IsTicked(*D().chkIgnoreComment, state));
  }
  Click(WindowOf(*D().chkIgnoreComment));
  EXPECT_EQ(Setting().menumIgnoreComment, gsExcludeComment);
  Click(WindowOf(*D().optAreaButtons[gsAllProjects]));
  EXPECT_EQ(Setting().menumArea, gsAllProjects);
  Click(Edit(*D().cmbSearch));
  EXPECT_EQ(Active(), "cmbSearch");
  Press(VK_F1);
  EXPECT_EQ(platform.shell.Opened.size(), 1U);
}

/// As at the start and the end of a task.
TEST_F(SearchDialogWindowTest, TheFocusWaitsWhileControlsAreDisabled) {
  Type(u"x");
  for (const std::shared_ptr<forms::Control>& control :
       {std::shared_ptr<forms::Control>(D().cmbReplace), std::shared_ptr<forms::Control>(D().cmdSearch)}) {
    D().SetFocus(control);
    const HWND focus = ::GetFocus();
    for (const bool enabled : {false, true}) {
      for (const auto& each : D().Controls().All()) each->SetEnabled(enabled);
      EXPECT_EQ(::GetFocus() == focus, enabled);
      EXPECT_TRUE(::IsChild(WindowOf(D()), ::GetFocus()));
      EXPECT_EQ(D().ActiveControl(), control);
    }
  }
  D().cmdCancel->SetVisible(true);
  D().SetFocus(D().cmdCancel);
  for (const auto& each : D().Controls().All()) each->SetEnabled(false);
  Press(VK_ESCAPE);
  EXPECT_FALSE(D().Visible()) << "keys reach the dialog all the same";
}

TEST_F(SearchDialogWindowTest, TheMenuComesOnTheSurfaceAlone) {
  const RECT room = [&] {
    RECT inside{};
    ::GetClientRect(WindowOf(D()), &inside);
    return inside;
  }();
  const auto onSurface = [&] { ClickAt(WindowOf(D()), {room.right - 10, room.bottom - 10}, true); };
  Setting().menumSearchTo = 1;
  EXPECT_TRUE(InMenu(onSurface, {VK_DOWN, VK_DOWN, VK_RETURN}));
  EXPECT_EQ(Setting().menumSearchTo, 0);
  EXPECT_TRUE(D().mnuToNewTab.Checked());
  const auto inFrame = [&] {
    RECT frame{};
    ::GetClientRect(WindowOf(*D().frameMode), &frame);
    ClickAt(WindowOf(*D().frameMode), {frame.right / 2, frame.bottom - 8}, true);
  };
  EXPECT_FALSE(InMenu(inFrame, {VK_ESCAPE})) << "a frame is no surface";
}

/// While an input method composes, Enter and the other keys are its own; then its characters come one by one.
TEST_F(SearchDialogWindowTest, AnInputMethodHasItsKeysToItself) {
  const HWND box = Edit(*D().cmbSearch);
  ::SetFocus(box);
  ::SendMessageW(box, EM_SETSEL, 0, -1);
  ::PostMessageW(box, WM_KEYDOWN, VK_PROCESSKEY, 1 | (0x1C << 16));  // Enter, by its place on the keyboard
  ::PostMessageW(box, WM_IME_CHAR, u'拖', 1);
  ::PostMessageW(box, WM_IME_CHAR, u'放', 1);
  EXPECT_TRUE(ServeUntil([&] { return D().cmbSearch->Text() == u"拖放"; })) << Find();
  EXPECT_TRUE(D().Visible());
  EXPECT_EQ(Active(), "cmbSearch");
  EXPECT_EQ(Setting().mstrSearchStr, u"拖放");
}

TEST_F(SearchDialogWindowTest, TextIsDroppedOnTheBoxes) {
  const auto target = [&](const forms::Control& combo) {
    return static_cast<IDropTarget*>(::GetPropW(WindowOf(combo), L"OleDropTargetInterface"));
  };
  ASSERT_NE(target(*D().cmbSearch), nullptr);
  const auto drop = [&](UINT format, const void* bytes, std::size_t size) {
    ::OpenClipboard(mainWindow);
    ::EmptyClipboard();
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(::GlobalLock(memory), bytes, size);
    ::GlobalUnlock(memory);
    ::SetClipboardData(format, memory);
    ::CloseClipboard();
    IDataObject* data = nullptr;
    EXPECT_EQ(::OleGetClipboard(&data), S_OK);
    DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    IDropTarget& at = *target(*D().cmbReplace);
    EXPECT_EQ(at.DragEnter(data, MK_LBUTTON, {}, &effect), S_OK);
    const DWORD offered = effect;
    effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    EXPECT_EQ(at.Drop(data, MK_LBUTTON, {}, &effect), S_OK);
    EXPECT_EQ(effect, offered);
    data->Release();
    return offered;
  };
  const std::u16string text = u"拖\tdrop";
  EXPECT_EQ(drop(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * 2), static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_EQ(Setting().mstrReplaceStr, text);
  EXPECT_EQ(TextOf(Edit(*D().cmbReplace)), text);
  EXPECT_EQ(drop(::RegisterClipboardFormatW(L"QuorvaneOther"), "abc", 4), static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(Setting().mstrReplaceStr, text);
}

TEST_F(SearchDialogWindowTest, AnotherLanguageHasItsOwnSizes) {
  const auto width = [&](const forms::Control& control) {
    RECT place{};
    ::GetWindowRect(WindowOf(control), &place);
    return place.right - place.left;
  };
  const LONG before = width(*D().chkIgnoreComment);
  const std::int32_t dialog = D().Width();
  Globals::Language().Language = 0;
  Globals::Language().UpdateAllUI();
  EXPECT_EQ(TextOf(WindowOf(*D().chkIgnoreComment)), u"排除注释(&I)");
  EXPECT_NE(D().Width(), dialog);
  RECT place{};
  ::GetWindowRect(WindowOf(D()), &place);
  EXPECT_EQ(D().Width(), place.right - place.left);
  EXPECT_GE(width(*D().cmdReplace), width(*D().cmdSearch));
  RECT host{};
  ::GetWindowRect(mainWindow, &host);
  ::GetClientRect(mainWindow, &place);
  ::SetWindowPos(WindowOf(D()), nullptr, place.right - D().Width(), 20, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  Globals::Language().Language = 1;
  Globals::Language().UpdateAllUI();
  EXPECT_EQ(D().Width(), dialog);
  ::GetWindowRect(WindowOf(D()), &place);
  EXPECT_LE(place.right, host.right) << "it grows to the side that has room";
  EXPECT_EQ(D().Left(), place.left);
  EXPECT_EQ(width(*D().chkIgnoreComment), before);
}

}  // namespace
}  // namespace quorvane::test
