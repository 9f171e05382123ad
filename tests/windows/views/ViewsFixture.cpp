#include "ViewsFixture.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "addin/connect/HotkeyProxy.h"
#include "addin/connect/Updater.h"
#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/Utilities.h"
#include "addin/dialogs/RegisterDialogs.h"
#include "addin/results/PageManager.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/XmlTable.h"
#include "platform/forms/TabControl.h"
#include "windows/dialogs/RegisterFormViews.h"
#include "windows/forms/FormWindow.h"
#include "windows/forms/Handles.h"
#include "windows/forms/WideText.h"
#include "windows/forms/Window.h"

namespace quorvane::test {

namespace {

using quorvane::windows::FromWide;
using quorvane::windows::Wide;

constexpr char16_t kTitle[] = u"Project1 - Host";
constexpr DWORD kMoment = 30;  // milliseconds
constexpr DWORD kMomentWithoutMark = 300;
constexpr WORD kMark = 0xE8;  // a key that no keyboard has
constexpr DWORD kLongestWait = 5000;
constexpr DWORD kWaitWithPictures = 60000;

class PlainCodePage final : public CodePage {
 public:
  std::string Name() const override { return "1252"; }
  void Decode(std::string_view bytes, std::u16string& out) const override {
    for (const char byte : bytes) out += static_cast<char16_t>(static_cast<unsigned char>(byte));
  }
  bool Encode(std::u16string_view text, std::string& out, std::size_t&) const override {
    for (const char16_t c : text) out += static_cast<char>(c);
    return true;
  }
  bool AsciiTrailBytes() const override { return false; }

 protected:
  bool IsWideBeyondAscii(char16_t) const override { return false; }
};

class NoPrompts final : public Prompts {
 public:
  int MsgBox(const std::u16string& text, int, const std::u16string&) override {
    ADD_FAILURE() << "unexpected message box: " << ToUtf8(text);
    return 1;
  }
};

class PlainWindow final : public vbide::Window {
 public:
  std::u16string Caption() const override { return kTitle; }
  void SetCaption(const std::u16string&) override {}
  bool Visible() const override { return true; }
  void SetVisible(bool) override {}
  void SetWindowState(std::int32_t) override {}
  void Close() override {}
};

class PlainHost final : public vbide::VBE {
 public:
  std::shared_ptr<vbide::CodePane> ActiveCodePane() const override { return nullptr; }
  std::shared_ptr<vbide::VBProject> ActiveVBProject() const override { return nullptr; }
  std::vector<std::shared_ptr<vbide::VBProject>> VBProjects() const override { return {}; }
  std::shared_ptr<vbide::CommandBars> CommandBars() override { return nullptr; }
  std::shared_ptr<vbide::Windows> Windows() override { return nullptr; }
  std::shared_ptr<vbide::Events> Events() override { return nullptr; }
  std::shared_ptr<vbide::Addins> Addins() override { return nullptr; }
  std::shared_ptr<vbide::Window> MainWindow() override { return window_; }

 private:
  std::shared_ptr<vbide::Window> window_ = std::make_shared<PlainWindow>();
};

HWND MakeMainWindow() {
  WNDCLASSEXW what{};
  what.cbSize = sizeof(what);
  what.lpfnWndProc = &::DefWindowProcW;
  what.hInstance = ::GetModuleHandleW(nullptr);
  what.hbrBackground = ::GetSysColorBrush(COLOR_APPWORKSPACE);
  what.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
  what.lpszClassName = L"wndclass_desked_gsk";
  ::RegisterClassExW(&what);
  return ::CreateWindowExW(0, what.lpszClassName, Wide(kTitle), WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 20,
                           20, 1300, 820, nullptr, nullptr, what.hInstance, nullptr);
}

void Key(WORD key, bool up) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(key, 0));
  input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
  ::SendInput(1, &input, sizeof(input));
}

void Mouse(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  ::SendInput(1, &input, sizeof(input));
}

/// Timers, of which some of the system's own never end, are no work that waits. The mark comes after all input that was
/// sent before it, unless a loop within took it.
enum class Turn { Nothing, Timer, Mark, Work };
Turn ServeOne() {
  constexpr UINT kSystemTimer = 0x118;
  MSG message;
  if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return Turn::Nothing;
  if (message.message == WM_KEYUP && message.wParam == kMark) return Turn::Mark;
  const bool timer = message.message == WM_TIMER || message.message == kSystemTimer;
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
  return timer ? Turn::Timer : Turn::Work;
}

}  // namespace

ViewsPlatform::ViewsPlatform()
    : forms(views), codePage_(std::make_unique<PlainCodePage>()), prompts_(std::make_unique<NoPrompts>()) {
  ::OleInitialize(nullptr);
  InstallPlatform(this);
  quorvane::windows::RegisterFormViews(views);
}

ViewsPlatform::~ViewsPlatform() {
  InstallPlatform(nullptr);
  ::OleUninitialize();
}

std::unique_ptr<RegExp> ViewsPlatform::NewRegExp() {
  RaiseError(ErrorNumber::CannotCreateObject);
}

std::shared_ptr<XmlDocument> ViewsPlatform::NewXmlDocument() {
  RaiseError(ErrorNumber::CannotCreateObject);
}

std::unique_ptr<XmlTable> ViewsPlatform::NewXmlTable(const XmlTableShape&) {
  RaiseError(ErrorNumber::CannotCreateObject);
}

ViewsTest::ViewsTest() : host_(std::make_shared<PlainHost>()) {
  mainWindow = MakeMainWindow();
  hostBox = ::CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"code", WS_CHILD | WS_VISIBLE | ES_MULTILINE, 10, 10, 300, 60,
                              mainWindow, nullptr, ::GetModuleHandleW(nullptr), nullptr);
  platform.forms.SetOwner(mainWindow);
  Globals::gobjVBE = host_;
  Globals::gobjErrorManager = std::make_shared<ErrorManager>();
  Globals::gobjUtilities = std::make_shared<Utilities>();
  Globals::gobjSetting = std::make_shared<GlobalSetting>();
  Globals::gobjUpdater = std::make_shared<Updater>();
  Globals::Language().Language = 1;
  Globals::gobjHotkeyProxy = std::make_shared<HotkeyProxy>();
  platform.app.ProjectHost = u"host.example";
  RegisterDialogs();
  ::SetForegroundWindow(mainWindow);
  ::SetFocus(hostBox);
  Serve();
}

ViewsTest::~ViewsTest() {
  while (forms::TheForms().Count() > 0) forms::TheForms().Item(0)->Unload();
  forms::TheForms().Forget();
  Globals::EndOfCode();
  Serve();
  ::DestroyWindow(mainWindow);
}

void ViewsTest::Serve() {
  Key(kMark, true);
  const DWORD start = ::GetTickCount();
  bool marked = false;
  for (DWORD last = start; ::GetTickCount() - last < (marked ? kMoment : kMomentWithoutMark);) {
    if (last - start > kLongestWait) {
      ADD_FAILURE() << "the queue is never empty";
      return;
    }
    const Turn turn = ServeOne();
    marked = marked || turn == Turn::Mark;
    if (turn == Turn::Work || turn == Turn::Mark) {
      last = ::GetTickCount();
    } else if (turn == Turn::Nothing) {
      ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kMoment / 3, QS_ALLINPUT);
    }
  }
}

bool ViewsTest::ServeUntil(const std::function<bool()>& done) {
  for (const DWORD start = ::GetTickCount(); !done();) {
    const DWORD longest = std::getenv("QUORVANE_PICTURES") == nullptr ? kLongestWait : kWaitWithPictures;
    if (::GetTickCount() - start > longest) return false;
    if (ServeOne() == Turn::Nothing) ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kMoment, QS_ALLINPUT);
  }
  return true;
}

void ViewsTest::Send(WORD key) {
  Key(key, false);
  Key(key, true);
}

void ViewsTest::Press(int key, std::initializer_list<int> held) {
  for (const int modifier : held) Key(static_cast<WORD>(modifier), false);
  Key(static_cast<WORD>(key), false);
  Key(static_cast<WORD>(key), true);
  for (const int modifier : held) Key(static_cast<WORD>(modifier), true);
  Serve();
}

void ViewsTest::Type(std::u16string_view text) {
  for (const char16_t c : text) {
    const SHORT key = ::VkKeyScanW(static_cast<wchar_t>(c));
    const bool shift = (key & 0x100) != 0;
    if (shift) Key(VK_SHIFT, false);
    Key(static_cast<WORD>(key & 0xFF), false);
    Key(static_cast<WORD>(key & 0xFF), true);
    if (shift) Key(VK_SHIFT, true);
  }
  Serve();
}

void ViewsTest::Click(HWND window, bool right) {
  RECT room{};
  ::GetClientRect(window, &room);
  ClickAt(window, {room.right / 2, room.bottom / 2}, right);
}

void ViewsTest::ClickAt(HWND window, POINT place, bool right, int times) {
  ::ClientToScreen(window, &place);
  ::SetCursorPos(place.x, place.y);
  Serve();
  for (int i = 0; i < times; ++i) {
    Mouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
    Mouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
  }
  Serve();
}

frmSearchDialog& ViewsTest::SearchDialog() {
  return dynamic_cast<frmSearchDialog&>(*forms::TheForms().Instance(u"frmSearchDialog"));
}

void ViewsTest::ShowSearchDialog() {
  SearchDialog().ShowEx();
  Serve();
}

HWND ViewsTest::WindowOf(const forms::Dialog& form) {
  return quorvane::windows::WindowOf(form.hWnd());
}

HWND ViewsTest::WindowOf(const forms::Control& control) {
  return quorvane::windows::WindowOf(control.hWnd());
}

std::u16string ViewsTest::TextOf(HWND window) {
  std::u16string text(static_cast<std::size_t>(::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, u'\0');
  const LRESULT length = ::SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void ViewsTest::Walk(const std::u16string& name, const std::function<void()>& open, const std::function<void()>& walk) {
  bool walked = false;
  MessageLoop::TimerId watch = 0;
  watch = platform.loop.StartTimer(20, [&] {
    const auto form = forms::TheForms().Count() > 0 ? forms::TheForms().Open().back() : nullptr;
    if (!form || form->Name() != name || !form->Visible()) return;
    platform.loop.StopTimer(watch);
    walked = true;
    try {
      walk();
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    EXPECT_FALSE(form->Loaded()) << "the walk left it open";
    form->Unload();
  });
  bool closed = false;
  platform.loop.Post([&] {
    open();
    closed = true;
  });
  EXPECT_TRUE(ServeUntil([&] { return closed; }));
  platform.loop.StopTimer(watch);
  EXPECT_TRUE(walked) << "the form did not come";
  Serve();
}

void ViewsTest::Picture(const std::string& name) {
  const char* folder = std::getenv("QUORVANE_PICTURES");
  if (folder == nullptr) return;
  Serve();
  const std::filesystem::path asked = std::filesystem::path(folder) / (name + ".ask");
  std::ofstream(asked).put('x');
  ServeUntil([&] { return !std::filesystem::exists(asked); });
}

}  // namespace quorvane::test
