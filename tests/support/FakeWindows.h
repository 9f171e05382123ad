#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/NativeWindows.h"

namespace quorvane::test {

/// A window table that a test fills. Calls that change a window are written down, in words.
class FakeWindows final : public NativeWindows {
 public:
  struct Entry {
    std::u16string className;
    std::u16string title;
    WindowHandle parent = 0;
    ScreenRect rect;
  };

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
  WindowHandle GetForegroundWindow() override { return Foreground; }
  std::u16string GetWindowText(WindowHandle window) override;
  ScreenPoint GetCursorPos() override { return Mouse; }
  std::optional<ScreenRect> GetWindowRect(WindowHandle window) override;

  std::map<WindowHandle, Entry> Windows;  ///< the frontmost of one parent has the lowest handle
  ScreenPoint Mouse;
  WindowHandle Foreground = 0;
  std::int32_t Answer = 0;  ///< of SendMessage
  std::vector<std::string> Calls;

 private:
  template <class... Args>
  void Note(const char* name, Args... args);
};

}  // namespace quorvane::test
