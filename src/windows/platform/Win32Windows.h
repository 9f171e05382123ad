#pragma once

#include "platform/NativeWindows.h"
#include "windows/com/Win32.h"

namespace quorvane::windows {

/// The window system's calls as they are. A window that becomes a child of another one by SetParent changes its style
/// with that, as the window system wants it, and back when it becomes a window of its own.
class Win32Windows final : public NativeWindows {
 public:
  /// What stands for the host's main window when none of this process bears its class and title. Null: nothing.
  void SetMainWindow(HWND window) { mainWindow_ = window; }

  /// The host's own window before an equally named one of another process.
  WindowHandle FindWindow(std::u16string_view className, std::u16string_view windowName) override;
  WindowHandle FindWindowEx(WindowHandle parent, std::u16string_view className,
                            std::u16string_view windowName) override;
  std::int32_t SendMessage(WindowHandle window, std::uint32_t message, std::int32_t wParam,
                           std::int32_t lParam) override;
  void ShowWindow(WindowHandle window, std::int32_t command) override;
  void ShowWindowAsync(WindowHandle window, std::int32_t command) override;
  void SetWindowPos(WindowHandle window, WindowHandle insertAfter, std::int32_t x, std::int32_t y, std::int32_t width,
                    std::int32_t height, std::uint32_t flags) override;
  WindowHandle GetTopWindow(WindowHandle window) override;
  WindowHandle GetParent(WindowHandle window) override;
  void SetParent(WindowHandle child, WindowHandle newParent) override;
  WindowHandle GetForegroundWindow() override;
  std::u16string GetWindowText(WindowHandle window) override;
  ScreenPoint GetCursorPos() override;
  std::optional<ScreenRect> GetWindowRect(WindowHandle window) override;
  std::uint32_t GetSysColor(std::int32_t index) override;

 private:
  HWND mainWindow_ = nullptr;
};

}  // namespace quorvane::windows
