#include "platform/Prompts.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Dialog.h"
#include "platform/forms/Forms.h"
#include "platform/forms/Screen.h"
#include "windows/forms/FormWindow.h"
#include "windows/forms/Handles.h"
#include "windows/forms/Monitor.h"
#include "windows/platform/PlatformFixture.h"

namespace quorvane::test {

class TestForm final : public forms::Dialog {
 public:
  explicit TestForm(forms::FormBorder border = forms::FormBorder::FixedDialog,
                    forms::FormStart start = forms::FormStart::Manual)
      : Dialog(u"frmTest", border, start), button(std::make_shared<forms::CommandButton>()) {
    SetCaption(u"A form");
    Controls().Place(u"cmdOk", button);
    SetDefaultButton(button);
    SetCancelButton(button);
  }
  HWND Window() const { return windows::WindowOf(hWnd()); }

  const std::shared_ptr<forms::CommandButton> button;
  bool keeps = false;
  std::string unloads;

 protected:
  void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override {
    unloads += std::to_string(static_cast<int>(mode));
    cancel = keeps;
  }
};

class TestView final : public TestWindow, public windows::View {
 public:
  explicit TestView(HWND parent) : TestWindow(WS_CHILD | WS_VISIBLE, nullptr, parent) {}
  HWND Handle() const override { return Window::Handle(); }
  SIZE WantedSize() const override { return {120, 80}; }
  void TakeFocus() override { ::SetFocus(Window::Handle()); }
};

class FormWindowTest : public PlatformFixture {
 protected:
  FormWindowTest() {
    platform.Views().RegisterForm<TestForm>([](TestForm&, HWND parent) { return std::make_unique<TestView>(parent); });
    platform.SetMainWindow(host.Handle());
  }
  ~FormWindowTest() override {
    while (forms::TheForms().Count() > 0) {
      static_cast<TestForm&>(*forms::TheForms().Item(0)).keeps = false;
      forms::TheForms().Item(0)->Unload();
    }
  }
  static std::u16string TitleOf(HWND window) {
    wchar_t text[100];
    const int length = ::GetWindowTextW(window, text, 100);
    return std::u16string(text, text + length);
  }

  TestWindow host{WS_OVERLAPPEDWINDOW | WS_VISIBLE};
};

TEST_F(FormWindowTest, FollowsCaptionPlaceAndVisibility) {
  const auto form = std::make_shared<TestForm>();
  form->Load();
  const HWND window = form->Window();
  ASSERT_TRUE(::IsWindow(window));
  EXPECT_FALSE(::IsWindowVisible(window));
  EXPECT_GT(form->Width(), 120) << "its own frame included";
  form->Move(40, 50);
  form->Show();
  EXPECT_TRUE(::IsWindowVisible(window));
  EXPECT_EQ(TitleOf(window), u"A form");
  RECT place{};
  ::GetWindowRect(window, &place);
  EXPECT_EQ(place.left, 40);
  EXPECT_EQ(place.top, 50);
  form->SetCaption(u"版");
  EXPECT_EQ(TitleOf(window), u"版");
  ::SetWindowPos(window, nullptr, 60, 70, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  EXPECT_EQ(form->Left(), 60);
  EXPECT_EQ(form->Top(), 70);
  form->keeps = true;
  ::SendMessageW(window, WM_CLOSE, 0, 0);
  EXPECT_TRUE(::IsWindowVisible(window)) << "the form decides";
  form->keeps = false;
  ::SendMessageW(window, WM_CLOSE, 0, 0);
  EXPECT_EQ(form->unloads, "00");
  EXPECT_FALSE(::IsWindow(window));
  EXPECT_EQ(form->hWnd(), 0);
}

TEST_F(FormWindowTest, AModalFormDisablesTheHostAndReturnsWhenItIsClosed) {
  const auto form = std::make_shared<TestForm>();
  bool enabled = true;
  HWND front = nullptr;
  platform.Queue().Post([&] {
    enabled = ::IsWindowEnabled(host.Handle());
    front = windows::FormWindow::ModalInFront();
    ::PostMessageW(form->Window(), WM_KEYDOWN, VK_ESCAPE, 1);
  });
  const auto closed = form->button->Click.Subscribe([&] { form->Unload(); });
  form->Show(forms::FormModal::Modal);
  EXPECT_FALSE(enabled);
  EXPECT_NE(front, nullptr);
  EXPECT_TRUE(::IsWindowEnabled(host.Handle()));
  EXPECT_EQ(windows::FormWindow::ModalInFront(), nullptr);
}

/// The host's main window may take the form in as a child, which stays where it was and keeps its title bar.
TEST_F(FormWindowTest, AChildOfTheHostStaysInItsPlace) {
  const auto form = std::make_shared<TestForm>();
  form->Load();
  form->Move(30, 40);
  const HWND window = form->Window();
  platform.Windows().SetParent(form->hWnd(), windows::HandleOf(host.Handle()));
  form->Show();
  EXPECT_EQ(::GetParent(window), host.Handle());
  EXPECT_NE(::GetWindowLongW(window, GWL_STYLE) & WS_CAPTION, 0);
  RECT place{};
  ::GetWindowRect(window, &place);
  EXPECT_EQ(place.left, 30);
  EXPECT_EQ(place.top, 40);
  form->Move(50, 60);
  ::GetWindowRect(window, &place);
  EXPECT_EQ(place.left, 50);
  EXPECT_EQ(place.top, 60);
  EXPECT_TRUE(Pump([&] { return ::IsChild(window, ::GetFocus()); }));
  form->Hide();
  EXPECT_EQ(::GetFocus(), host.Handle());
  form->Move(5000, -500);
  form->Show();
  ::GetWindowRect(window, &place);
  EXPECT_EQ(form->Left(), place.left);
  EXPECT_EQ(form->Top(), place.top);
  RECT room{};
  ::GetClientRect(host.Handle(), &room);
  ::MapWindowPoints(host.Handle(), nullptr, reinterpret_cast<POINT*>(&room), 2);
  EXPECT_EQ(place.right, room.right) << "the host would cut it off";
  EXPECT_EQ(place.top, room.top);
}

TEST_F(FormWindowTest, WhatFloatsTakesNoFocusAndIsNoHigherThanTheScreen) {
  const auto form = std::make_shared<TestForm>(forms::FormBorder::None);
  ::SetFocus(host.Handle());
  form->Load();
  form->Show();
  EXPECT_FALSE(::IsWindowVisible(form->Window())) << "nothing to show yet";
  form->Hide();
  form->SetSize(200, 1000000);
  form->Move(10, 20 - 1000000);
  form->Show();
  EXPECT_TRUE(::IsWindowVisible(form->Window()));
  EXPECT_EQ(::GetFocus(), host.Handle());
  RECT place{};
  ::GetWindowRect(form->Window(), &place);
  EXPECT_EQ(place.bottom, 20);
  EXPECT_EQ(place.bottom - place.top, ::GetSystemMetrics(SM_CYVIRTUALSCREEN));
}

/// The second of two screens may lie left of the first.
TEST_F(FormWindowTest, FormsCountFromTheScreenOfTheirOwner) {
  const MONITORINFO left{sizeof left, {-1280, 0, 0, 1000}, {-1280, 40, 0, 1000}, 0};
  windows::TellForms(left);
  const auto form = std::make_shared<TestForm>(forms::FormBorder::FixedDialog, forms::FormStart::CenterScreen);
  form->SetSize(280, 160);
  EXPECT_EQ(form->Left(), -1280 + 500);
  EXPECT_EQ(form->Top(), 40 + 400);
  form->Load();
  MONITORINFO now{};
  now.cbSize = sizeof now;
  ASSERT_TRUE(::GetMonitorInfoW(windows::MonitorOf(host.Handle()), &now));
  EXPECT_EQ(forms::TheScreen().Left, now.rcWork.left);
  EXPECT_EQ(forms::TheScreen().Width, now.rcWork.right - now.rcWork.left);
  EXPECT_EQ(form->Left(), now.rcWork.left + (forms::TheScreen().Width - form->Width()) / 2);
}

/// A box that waits for an answer belongs to the host and keeps everything else still.
TEST_F(FormWindowTest, AMessageBoxDisablesTheHost) {
  const TestWindow tool(WS_POPUP | WS_VISIBLE);  // of the host, and not its main window
  bool enabled = true;
  HWND owner = nullptr;
  const auto timer = platform.Loop().StartTimer(50, [&] {
    const HWND box = ::FindWindowW(L"#32770", L"Title");
    if (box == nullptr) return;
    enabled = ::IsWindowEnabled(host.Handle()) || ::IsWindowEnabled(tool.Handle());
    owner = ::GetWindow(box, GW_OWNER);
    ::PostMessageW(box, WM_COMMAND, IDNO, 0);
  });
  EXPECT_EQ(platform.MessageBoxes().MsgBox(u"Text", 4, u"Title"), 7);
  platform.Loop().StopTimer(timer);
  EXPECT_FALSE(enabled);
  EXPECT_EQ(owner, host.Handle());
  EXPECT_TRUE(::IsWindowEnabled(host.Handle()) && ::IsWindowEnabled(tool.Handle()));
}

}  // namespace quorvane::test
