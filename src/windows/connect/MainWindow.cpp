#include "windows/connect/MainWindow.h"

#include "base/Skip.h"
#include "windows/com/LateBound.h"

namespace quorvane::windows {

namespace {

constexpr wchar_t kHostClass[] = L"wndclass_desked_gsk";

HWND ByObjectModel(const com::ComPtr<IDispatch>& application) {
  HWND window = nullptr;
  SkipErrors([&] {
    com::ClassIds classes;
    const com::LateBound host(application, classes);
    const com::LateBound main(host.Call(u"MainWindow").ToObject(), classes);
    window = reinterpret_cast<HWND>(static_cast<std::intptr_t>(main.Call(u"HWnd").ToInt32()));
  });
  return ::IsWindow(window) ? ::GetAncestor(window, GA_ROOT) : nullptr;
}

BOOL CALLBACK TakeHostWindow(HWND window, LPARAM found) {
  wchar_t name[64];
  if (::GetClassNameW(window, name, ARRAYSIZE(name)) == 0 || ::lstrcmpW(name, kHostClass) != 0) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

HWND FindMainWindow(const com::ComPtr<IDispatch>& application) {
  HWND window = ByObjectModel(application);
  if (window == nullptr) {
    ::EnumThreadWindows(::GetCurrentThreadId(), &TakeHostWindow, reinterpret_cast<LPARAM>(&window));
  }
  return window;
}

}  // namespace quorvane::windows
