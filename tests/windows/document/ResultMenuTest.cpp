#include "ResultDocumentFixture.h"
#include "platform/forms/Menu.h"

namespace quorvane::test {

/// Menus run a loop of their own: what happens in one comes from a timer.
class ResultMenuTest : public ResultDocumentTest {
 protected:
  void SetUp() override {
    Activate(true);
    MakeRows(3);
  }
  void TearDown() override { current = nullptr; }

  /// When the next menu is open its lines are written down, and then `key` is pressed.
  void Expect(wchar_t key) {
    current = this;
    key_ = key;
    lines_.clear();
    ::SetTimer(nullptr, 0, 50, &ResultMenuTest::OnTimer);
  }
  std::string Lines() const { return lines_; }

 private:
  static inline ResultMenuTest* current = nullptr;

  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR timer, DWORD) {
    ::KillTimer(nullptr, timer);
    if (current != nullptr) current->Read();
    ::SetTimer(nullptr, 0, 2000, &ResultMenuTest::OnPatienceEnd);
  }
  static void CALLBACK OnPatienceEnd(HWND, UINT, UINT_PTR timer, DWORD) {
    ::KillTimer(nullptr, timer);
    ::EndMenu();
  }

  void Read() {
    const HWND shown = ::FindWindowW(L"#32768", nullptr);
    const auto menu = reinterpret_cast<HMENU>(::SendMessageW(shown, 0x01E1 /* MN_GETHMENU */, 0, 0));
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
      wchar_t words[100] = L"";
      ::GetMenuStringW(menu, static_cast<UINT>(i), words, 100, MF_BYPOSITION);
      const UINT state = ::GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
      const bool line = (state & MF_SEPARATOR) != 0;
      const bool grayed = !line && (state & MF_GRAYED) != 0;
      lines_ += (grayed ? "(" : "") + std::string((state & MF_CHECKED) != 0 ? "*" : "") +
                (line ? "-" : ToUtf8(FromWide(words))) + (grayed ? ")\n" : "\n");
    }
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
    if (key_ == VK_ESCAPE) {
      ::PostMessageW(info.hwndMenuOwner, WM_KEYDOWN, VK_ESCAPE, 0);
    } else {
      ::PostMessageW(info.hwndMenuOwner, WM_CHAR, static_cast<WPARAM>(key_), 0);
    }
  }
  static std::u16string FromWide(std::wstring_view text) { return {text.begin(), text.end()}; }

  wchar_t key_ = 0;
  std::string lines_;
};

TEST_F(ResultMenuTest, OpensOverListStatusLineAndBar) {
  constexpr char kResults[] =
      "Show search &dialog\n-\n(R&epeat search)\n(Cancel search)\n-\nCode &preview\n(&Relpace "
      "preview)\n-\n&Options\n-\n"
      "&Clear result list\nResult &save as ...\n-\n&About ...\n";
  Expect(VK_ESCAPE);
  Press(ListHandle(), WM_RBUTTONDOWN, {20, RectOf(1).top + 2});
  EXPECT_EQ(Lines(), kResults);
  EXPECT_EQ(world.List().ListIndex(), 1);
  Expect(L'd');
  Press(::GetWindow(::GetParent(ListHandle()), GW_CHILD) == ListHandle()
            ? ::GetWindow(ListHandle(), GW_HWNDNEXT)
            : ::GetWindow(::GetParent(ListHandle()), GW_CHILD),
        WM_RBUTTONDOWN, {4, 4});
  EXPECT_EQ(Lines(), kResults);
  EXPECT_EQ(world.Log(), "ShowEx");

  Expect(L'e');
  PressTab(WM_RBUTTONDOWN, u"Search1");
  EXPECT_EQ(Lines(), "To n&ew tab\n*To c&urrent tab\n-\n&Close tab\nClose &other tabs\nClose &All tabs\n");
  EXPECT_EQ(world.Setting().menumSearchTo, 0);
}

TEST_F(ResultMenuTest, OpensByKey) {
  Key(VK_HOME);
  Expect(L'p');
  ::SendMessageW(ListHandle(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(ListHandle()), -1);
  EXPECT_TRUE(world.Doc().mnuCodePreview.Checked());
  Expect(VK_ESCAPE);
  Key(VK_TAB);
  ::SendMessageW(Bar().Handle(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Bar().Handle()), -1);
  EXPECT_NE(Lines().find("Close &other tabs"), std::string::npos);
}

TEST_F(ResultMenuTest, MayTakeItsOwnTabAway) {
  Expect(L'c');
  PressTab(WM_RBUTTONDOWN, u"Search1");
  EXPECT_EQ(world.Pages().mcolPages->Count(), 0);
}

}  // namespace quorvane::test
