#include "windows/platform/Win32Windows.h"

#include <string>

#include "windows/forms/Handles.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

constexpr std::uint32_t kBringViewForward = 0x1043;
constexpr std::u16string_view kHostClass = u"wndclass_desked_gsk";

bool OfThisProcess(HWND window) {
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  return process == ::GetCurrentProcessId();
}

}  // namespace

WindowHandle Win32Windows::FindWindow(std::u16string_view className, std::u16string_view windowName) {
  const std::u16string wantedClass(className);
  const std::u16string wantedName(windowName);
  HWND first = className == kHostClass && ::IsWindow(mainWindow_) ? mainWindow_ : nullptr;
  for (HWND at = nullptr;;) {
    at = ::FindWindowExW(nullptr, at, Wide(wantedClass), Wide(wantedName));
    if (at == nullptr) return HandleOf(first);
    if (OfThisProcess(at)) return HandleOf(at);
    if (first == nullptr) first = at;
  }
}

WindowHandle Win32Windows::FindWindowEx(WindowHandle parent, std::u16string_view className,
                                        std::u16string_view windowName) {
  if (parent == 0) return 0;
  return HandleOf(
      ::FindWindowExW(WindowOf(parent), nullptr, Wide(std::u16string(className)), Wide(std::u16string(windowName))));
}

std::int32_t Win32Windows::SendMessage(WindowHandle window, std::uint32_t message, std::int32_t wParam,
                                       std::int32_t lParam) {
  if (window == 0) return 0;
  // This one takes the address of a 16-bit zero.
  short zero = 0;
  const LPARAM last = message == kBringViewForward ? reinterpret_cast<LPARAM>(&zero) : lParam;
  return static_cast<std::int32_t>(::SendMessageW(WindowOf(window), message, static_cast<WPARAM>(wParam), last));
}

void Win32Windows::ShowWindow(WindowHandle window, std::int32_t command) {
  ::ShowWindow(WindowOf(window), command);
}

void Win32Windows::ShowWindowAsync(WindowHandle window, std::int32_t command) {
  ::ShowWindowAsync(WindowOf(window), command);
}

void Win32Windows::SetWindowPos(WindowHandle window, WindowHandle insertAfter, std::int32_t x, std::int32_t y,
                                std::int32_t width, std::int32_t height, std::uint32_t flags) {
  ::SetWindowPos(WindowOf(window), WindowOf(insertAfter), x, y, width, height, flags);
}

WindowHandle Win32Windows::GetTopWindow(WindowHandle window) {
  return HandleOf(::GetTopWindow(WindowOf(window)));
}

WindowHandle Win32Windows::GetParent(WindowHandle window) {
  return HandleOf(::GetParent(WindowOf(window)));
}

void Win32Windows::SetParent(WindowHandle child, WindowHandle newParent) {
  const HWND window = WindowOf(child);
  if (!::IsWindow(window) || (newParent != 0 && !::IsWindow(WindowOf(newParent)))) return;
  RECT place{};
  ::GetWindowRect(window, &place);
  const LONG style = ::GetWindowLongW(window, GWL_STYLE);
  const LONG popup = static_cast<LONG>(WS_POPUP);
  if (newParent != 0) ::SetWindowLongW(window, GWL_STYLE, (style & ~popup) | WS_CHILD);
  ::SetParent(window, WindowOf(newParent));
  if (newParent == 0) ::SetWindowLongW(window, GWL_STYLE, (style & ~WS_CHILD) | popup);
  POINT corner{place.left, place.top};  // it stays where it is on the screen
  if (newParent != 0) ::ScreenToClient(WindowOf(newParent), &corner);
  ::SetWindowPos(window, nullptr, corner.x, corner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOACTIVATE | SWP_FRAMECHANGED | (newParent == 0 ? SWP_NOZORDER : 0U));
}

WindowHandle Win32Windows::GetForegroundWindow() {
  return HandleOf(::GetForegroundWindow());
}

std::u16string Win32Windows::GetWindowText(WindowHandle window) {
  std::u16string text(static_cast<std::size_t>(::GetWindowTextLengthW(WindowOf(window))) + 1, u'\0');
  const int length =
      ::GetWindowTextW(WindowOf(window), reinterpret_cast<wchar_t*>(text.data()), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

ScreenPoint Win32Windows::GetCursorPos() {
  POINT place{};
  ::GetCursorPos(&place);
  return {place.x, place.y};
}

std::optional<ScreenRect> Win32Windows::GetWindowRect(WindowHandle window) {
  RECT place{};
  if (!::GetWindowRect(WindowOf(window), &place)) return std::nullopt;
  return ScreenRect{place.left, place.top, place.right, place.bottom};
}

std::uint32_t Win32Windows::GetSysColor(std::int32_t index) {
  return ::GetSysColor(index);
}

}  // namespace quorvane::windows
