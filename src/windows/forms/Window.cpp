// A window and its object find each other through a table of this thread rather than through a property of the window:
// a window may be subclassed by others, and a control's extra bytes are its own. While a window is being made its
// object waits in `making`, since the first messages come before the handle is known.
#include "windows/forms/Window.h"

#include <set>
#include <unordered_map>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "windows/forms/Entry.h"
#include "windows/forms/WideText.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;  // where this file lies in memory, from the linker

namespace quorvane::windows {

namespace {

Window* making = nullptr;

std::unordered_map<HWND, Window*>& Table() {
  static std::unordered_map<HWND, Window*> table;
  return table;
}

std::set<UINT>& Classes() {
  static std::set<UINT> classes;
  return classes;
}

/// The control that a message to its parent tells of; null when it tells of none.
HWND Sender(UINT message, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC:
      return reinterpret_cast<HWND>(lParam);
    case WM_NOTIFY:
      return reinterpret_cast<const NMHDR*>(lParam)->hwndFrom;
    case WM_DRAWITEM: {
      const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      return item->CtlType == ODT_MENU ? nullptr : item->hwndItem;
    }
    default:
      return nullptr;
  }
}

std::wstring ClassName(UINT style) {
  // By the file's place, since two copies of it may be loaded into one process.
  const auto place = static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(Instance()));
  return Wide(u"QuorvaneWindow" + ToText(place) + u"_" + ToText(static_cast<std::int64_t>(style)));
}

}  // namespace

HINSTANCE Instance() {
  return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

void RaiseLastError(const char16_t* what) {
  const DWORD number = ::GetLastError();
  wchar_t words[512];
  DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, number, 0, words,
                                  ARRAYSIZE(words), nullptr);
  while (length > 0 && words[length - 1] <= L' ') --length;
  throw Error(static_cast<std::int32_t>(HRESULT_FROM_WIN32(number)),
              std::u16string(what) + u": " + FromWide(words, length));
}

Window::~Window() {
  Destroy();
}

Window* Window::Of(HWND handle) {
  const auto found = Table().find(handle);
  return found != Table().end() ? found->second : nullptr;
}

void Window::Bury(std::unique_ptr<Window> doomed) {
  if (!doomed) return;
  if (doomed->handle_ != nullptr) ::ShowWindow(doomed->handle_, SW_HIDE);
  std::shared_ptr<Window> held = std::move(doomed);
  Entry::WhenAtRest([held = std::move(held)]() mutable { held.reset(); });
}

void Window::ForgetClasses() {
  for (const UINT style : Classes()) ::UnregisterClassW(ClassName(style).c_str(), Instance());
  Classes().clear();
}

const wchar_t* Window::ClassFor(UINT classStyle) {
  static std::wstring name;
  name = ClassName(classStyle);
  if (Classes().contains(classStyle)) return name.c_str();
  WNDCLASSEXW what{};
  what.cbSize = sizeof(what);
  what.style = classStyle;
  what.lpfnWndProc = &Window::Procedure;
  what.hInstance = Instance();
  what.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
  what.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<std::uintptr_t>(COLOR_BTNFACE) + 1);
  what.lpszClassName = name.c_str();
  if (::RegisterClassExW(&what) == 0) RaiseLastError(u"RegisterClassEx");
  Classes().insert(classStyle);
  return name.c_str();
}

void Window::Create(const Making& what) {
  Destroy();
  const bool own = what.control == nullptr;
  const wchar_t* className = own ? ClassFor(what.classStyle) : what.control;
  const HMENU menu = reinterpret_cast<HMENU>(static_cast<std::intptr_t>(what.id));
  Window* const outer = std::exchange(making, own ? this : nullptr);
  const HWND made = ::CreateWindowExW(what.extendedStyle, className, Wide(what.text), what.style, what.place.left,
                                      what.place.top, what.place.right - what.place.left,
                                      what.place.bottom - what.place.top, what.parent, menu, Instance(), nullptr);
  making = outer;
  if (made == nullptr) RaiseLastError(u"CreateWindowEx");
  handle_ = made;
  Table()[made] = this;
  if (!own) {
    const LONG_PTR before = ::SetWindowLongPtrW(made, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Window::Procedure));
    own_ = reinterpret_cast<WNDPROC>(before);
  }
}

void Window::Destroy() {
  if (handle_ != nullptr) ::DestroyWindow(handle_);
}

std::u16string Window::Text() const {
  std::u16string text(static_cast<std::size_t>(::GetWindowTextLengthW(handle_)) + 1, u'\0');
  const int length = ::GetWindowTextW(handle_, reinterpret_cast<wchar_t*>(text.data()), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void Window::SetText(const std::u16string& text) {
  ::SetWindowTextW(handle_, Wide(text));
}

LRESULT Window::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return Default(message, wParam, lParam);
}

bool Window::OnReflected(UINT, WPARAM, LPARAM, LRESULT&) {
  return false;
}

LRESULT Window::Default(UINT message, WPARAM wParam, LPARAM lParam) const {
  if (own_ != nullptr) return ::CallWindowProcW(own_, handle_, message, wParam, lParam);
  return ::DefWindowProcW(handle_, message, wParam, lParam);
}

LRESULT Window::Take(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const HWND sender = Sender(message, lParam); sender != nullptr && sender != handle_) {
    Window* child = Of(sender);
    LRESULT result = 0;
    if (child != nullptr && child->OnReflected(message, wParam, lParam, result)) return result;
  }
  return OnMessage(message, wParam, lParam);
}

LRESULT CALLBACK Window::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  return Enter<LRESULT>(0, [&]() -> LRESULT {
    if (making != nullptr && Of(handle) == nullptr) {
      making->handle_ = handle;
      Table()[handle] = making;
      making = nullptr;
    }
    Window* window = Of(handle);
    if (window == nullptr) return ::DefWindowProcW(handle, message, wParam, lParam);
    if (message != WM_NCDESTROY) return window->Take(message, wParam, lParam);
    Table().erase(handle);
    const LRESULT result = window->OnMessage(message, wParam, lParam);
    window->handle_ = nullptr;
    window->own_ = nullptr;
    return result;
  });
}

}  // namespace quorvane::windows
