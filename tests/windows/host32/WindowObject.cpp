#include "windows/host32/WindowObject.h"

#include <cstdio>
#include <exception>

namespace quorvane::container {

LRESULT CALLBACK WindowObject::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    void* parameter = reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams;
    if ((GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_MDICHILD) != 0) {
      parameter = reinterpret_cast<void*>(static_cast<MDICREATESTRUCTW*>(parameter)->lParam);
    }
    static_cast<WindowObject*>(parameter)->handle_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(parameter));
  }
  auto* object = reinterpret_cast<WindowObject*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (object == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  LRESULT result = 0;
  try {
    result = object->OnMessage(message, wParam, lParam);
  } catch (const std::exception& error) {
    std::printf("! %s\n", error.what());
    std::fflush(stdout);
  }
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    object->handle_ = nullptr;
  }
  return result;
}

void WindowObject::Register(const wchar_t* name) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.style = CS_DBLCLKS;
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = name;
  RegisterClassExW(&windowClass);
}

}  // namespace quorvane::container
