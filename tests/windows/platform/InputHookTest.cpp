#include <vector>

#include "windows/platform/PlatformFixture.h"

namespace quorvane::test {

constexpr std::int32_t kKey = 'Q';
constexpr std::int32_t kCtrl = 2;

/// Holds a key down for as long as it lives, as this thread sees it.
class HeldKey {
 public:
  explicit HeldKey(int key) : key_(key) { Set(0x80); }
  ~HeldKey() { Set(0); }

 private:
  void Set(BYTE state) const {
    BYTE keys[256];
    ::GetKeyboardState(keys);
    keys[key_] = state;
    ::SetKeyboardState(keys);
  }
  int key_;
};

class InputHookTest : public PlatformFixture, public windows::KeyTarget {
 protected:
  InputHookTest() {
    platform.SetMainWindow(host.Handle());
    platform.Input().SetHotkeys(
        {[](std::int32_t key, std::int32_t modifier) { return key == kKey && modifier == kCtrl; },
         [this](std::int32_t, std::int32_t) { ++run; }});
    PumpAll();
  }
  ~InputHookTest() override { platform.Input().Remove(form.Handle()); }

  bool TakeKey(const MSG& message) override {
    seen.push_back(message);
    return takes;
  }
  std::u16string Typed() const { return edit.Text(); }

  TestWindow host{WS_OVERLAPPEDWINDOW | WS_VISIBLE};
  TestWindow form{WS_OVERLAPPEDWINDOW | WS_VISIBLE};
  TestWindow edit{WS_CHILD | WS_VISIBLE, L"EDIT", form.Handle()};
  std::vector<MSG> seen;
  bool takes = false;
  int run = 0;
};

TEST_F(InputHookTest, AHotkeyIsTakenOnlyOutOfTheQueueAndRunsBehindTheHook) {
  const HeldKey ctrl(VK_CONTROL);
  ::PostMessageW(host.Handle(), WM_KEYDOWN, kKey, 1);
  MSG message;
  ASSERT_TRUE(::PeekMessageW(&message, host.Handle(), WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE));
  EXPECT_EQ(message.message, static_cast<UINT>(WM_KEYDOWN)) << "a look takes nothing";
  ASSERT_TRUE(::PeekMessageW(&message, host.Handle(), WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
  EXPECT_EQ(message.message, static_cast<UINT>(WM_NULL));
  EXPECT_EQ(run, 0) << "not inside the hook";
  EXPECT_TRUE(Pump([&] { return run > 0; }));
  PumpAll();
  EXPECT_EQ(run, 1);
}

TEST_F(InputHookTest, NoHotkeyWithoutItsModifierOrWhileTheHostWaits) {
  struct Case {
    const char* what;
    bool ctrl;
    bool enabled;
    bool visible;
    int times;
  };
  constexpr Case kCases[] = {
      {"as it should be", true, true, true, 1},
      {"no modifier", false, true, true, 0},
      {"a message box has the main window disabled", true, false, true, 0},
      {"the host is not there to be seen", true, true, false, 0},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.what);
    ::EnableWindow(host.Handle(), c.enabled);
    ::ShowWindow(host.Handle(), c.visible ? SW_SHOW : SW_HIDE);
    PumpAll();
    run = 0;
    const HeldKey held(c.ctrl ? VK_CONTROL : VK_F24);
    ::PostMessageW(edit.Handle(), WM_KEYDOWN, kKey, 1);
    PumpAll();
    EXPECT_EQ(run, c.times);
  }
}

/// A host's loop gives our windows no keys; the hook does, and what the form does not take is typed.
TEST_F(InputHookTest, KeysOfAFormComeToItFirst) {
  platform.Input().Add(form.Handle(), *this);
  ::PostMessageW(edit.Handle(), WM_KEYDOWN, 'A', 0x1E0001);
  EXPECT_TRUE(Pump([&] { return !Typed().empty(); }));
  ASSERT_EQ(seen.size(), 2U);
  EXPECT_EQ(seen[0].message, static_cast<UINT>(WM_KEYDOWN));
  EXPECT_EQ(seen[0].hwnd, edit.Handle());
  EXPECT_EQ(seen[1].message, static_cast<UINT>(WM_CHAR));
  EXPECT_EQ(Typed(), u"a");
  takes = true;
  ::PostMessageW(edit.Handle(), WM_KEYDOWN, 'B', 0x300001);
  PumpAll();
  EXPECT_EQ(seen.size(), 3U);
  EXPECT_EQ(Typed(), u"a");
  platform.Input().Remove(form.Handle());
  ::PostMessageW(edit.Handle(), WM_KEYDOWN, 'C', 0x2E0001);
  EXPECT_TRUE(Pump([&] { return Typed() == u"ac"; }));
  EXPECT_EQ(seen.size(), 3U);
}

}  // namespace quorvane::test
