#pragma once

#include <memory>
#include <string>

#include "platform/NativeWindows.h"

namespace quorvane::workbench {

class HostWindow;
class Pane;
class Workbench;

/// The workbench's windows as a window system would show them: the main window of class "wndclass_desked_gsk", in it
/// the client area "MDIClient" without a title, in it a "VbaWindow" a code pane, the frontmost first; beside the client
/// area the tool windows, which are not found by class. Class names and titles are compared without regard to the case
/// of ASCII letters. The workbench keeps no places and no mouse: those calls are left to whoever draws.
class WindowTable final : public NativeWindows {
 public:
  /// The workbench outlives the table.
  explicit WindowTable(const Workbench& workbench);

  WindowHandle FindWindow(std::u16string_view className, std::u16string_view windowName) override;
  WindowHandle FindWindowEx(WindowHandle parent, std::u16string_view className,
                            std::u16string_view windowName) override;
  std::int32_t SendMessage(WindowHandle window, std::uint32_t message, std::int32_t wParam,
                           std::int32_t lParam) override;

  void ShowWindow(WindowHandle window, std::int32_t command) override;
  void ShowWindowAsync(WindowHandle window, std::int32_t command) override { ShowWindow(window, command); }
  /// Brings a code window to the front when asked for the top; moves and sizes nothing.
  void SetWindowPos(WindowHandle window, WindowHandle insertAfter, std::int32_t x, std::int32_t y, std::int32_t width,
                    std::int32_t height, std::uint32_t flags) override;
  WindowHandle GetTopWindow(WindowHandle window) override;
  WindowHandle GetParent(WindowHandle window) override;
  /// The main window while it is visible.
  WindowHandle GetForegroundWindow() override;
  std::u16string GetWindowText(WindowHandle window) override;

 private:
  /// Null for the client area and for no window.
  std::shared_ptr<HostWindow> WindowOf(WindowHandle handle) const;
  std::shared_ptr<Pane> PaneOf(WindowHandle handle) const;

  const Workbench& workbench_;
  WindowHandle client_;
};

}  // namespace quorvane::workbench
