#include "ResultDocumentFixture.h"

#include "platform/forms/TabControl.h"
#include "windows/forms/Handles.h"

namespace quorvane::test {

using windows::HandleOf;
using windows::WindowOf;

/// The window system for the document's own windows, the embedded host's table for the host's.
class ResultDocumentTest::MixedWindows final : public NativeWindows {
 public:
  explicit MixedWindows(NativeWindows& host) : host_(host) {}
  WindowHandle FindWindow(std::u16string_view className, std::u16string_view windowName) override {
    return host_.FindWindow(className, windowName);
  }
  WindowHandle FindWindowEx(WindowHandle parent, std::u16string_view className,
                            std::u16string_view windowName) override {
    return host_.FindWindowEx(parent, className, windowName);
  }
  std::int32_t SendMessage(WindowHandle window, std::uint32_t message, std::int32_t wParam,
                           std::int32_t lParam) override {
    if (::IsWindow(WindowOf(window))) return own_.SendMessage(window, message, wParam, lParam);
    return host_.SendMessage(window, message, wParam, lParam);
  }
  std::uint32_t GetSysColor(std::int32_t index) override { return own_.GetSysColor(index); }

 private:
  NativeWindows& host_;
  windows::Win32Windows own_;
};

ResultDocumentTest::ResultDocumentTest()
    : world(Group{}.Project(u"Work").Module(u"Plan", u"Dim total\r\nSub Go()\r\n  total = total + 1\r\nEnd Sub\r\n")),
      site(com::MakeObject<InPlaceSite>()),
      mixed_(std::make_unique<MixedWindows>(*world.platform.windows)) {
  ::OleInitialize(nullptr);
  world.platform.windows = mixed_.get();
  windows::ResultView::Register(views_);
  const auto document = std::dynamic_pointer_cast<ResultDialog>(Globals::gobjResultDoc);
  control = com::MakeObject<windows::DocumentControl>(
      document, [this, document](HWND parent) { return views_.MakeView(*document, parent); });
  object = control.As<IOleObject>();
  place = control.As<IOleInPlaceObject>();
  object->SetClientSite(site->Client());
}

ResultDocumentTest::~ResultDocumentTest() {
  if (object) {
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
  }
  place.Reset();
  object.Reset();
  control.Reset();
  site.Reset();
  ::OleUninitialize();
}

void ResultDocumentTest::Activate(bool user) {
  const RECT rect = site->Place();
  EXPECT_EQ(object->DoVerb(user ? OLEIVERB_UIACTIVATE : OLEIVERB_INPLACEACTIVATE, nullptr, site->Client(), 0,
                           site->Window(), &rect),
            S_OK);
  Pump();
}

void ResultDocumentTest::Pump() {
  PumpUntil([last = ::GetTickCount()]() mutable { return ::GetTickCount() - last > 60; });
}

bool ResultDocumentTest::PumpUntil(const std::function<bool()>& reached) {
  for (const DWORD start = ::GetTickCount(); ::GetTickCount() - start < 5000;) {
    for (MSG message; ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
    if (reached()) return true;
    ::Sleep(5);
  }
  return false;
}

void ResultDocumentTest::MakeRows(int count) {
  if (!world.Pages().ActivePage()) world.Pages().AddNewPage();
  for (int row = 0; row < count; ++row) world.List().AddItem(u"row " + ToText(row), row + 1);
  Pump();
}

HWND ResultDocumentTest::DocumentHandle() {
  HWND window = nullptr;
  EXPECT_EQ(place->GetWindow(&window), S_OK);
  return window;
}

windows::ResultListView& ResultDocumentTest::ListView() {
  return dynamic_cast<windows::ResultListView&>(*windows::Window::Of(ListHandle()));
}

windows::ResultTabBar& ResultDocumentTest::Bar() {
  return dynamic_cast<windows::ResultView&>(*windows::Window::Of(WindowOf(world.Doc().hwnd()))).Bar();
}

std::u16string ResultDocumentTest::TextOf(int row) {
  std::u16string text(static_cast<std::size_t>(Ask(LB_GETTEXTLEN, static_cast<WPARAM>(row))) + 1, u'?');
  text.resize(
      static_cast<std::size_t>(Ask(LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

RECT ResultDocumentTest::RectOf(int row) {
  RECT rect{};
  Ask(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
  return rect;
}

void ResultDocumentTest::Press(HWND window, UINT message, POINT at) {
  ::SendMessageW(window, message, 0, MAKELPARAM(at.x, at.y));
}

void ResultDocumentTest::PressTab(UINT message, const std::u16string& key, bool cross) {
  const auto tab = world.Doc().vbalDTabControl1->Item(key);
  const RECT rect = cross ? Bar().CrossOf(tab) : Bar().RectOf(tab);
  Press(Bar().Handle(), message, cross ? POINT{rect.left + 4, rect.top + 4} : POINT{rect.left + 6, rect.top + 6});
  Pump();
}

}  // namespace quorvane::test
