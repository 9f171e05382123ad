#pragma once

#include "platform/NativeWindows.h"

namespace quorvane::workbench {

class Workbench;

/// The workbench's windows as a window system would show them: the main window of class "wndclass_desked_gsk", in it
/// the client area "MDIClient" without a title, in it a "VbaWindow" a code pane, the frontmost first. Class names and
/// titles are compared without regard to the case of ASCII letters.
class WindowTable final : public NativeWindows {
 public:
  /// The workbench outlives the table.
  explicit WindowTable(const Workbench& workbench);

  WindowHandle FindWindow(std::u16string_view className, std::u16string_view windowName) override;
  WindowHandle FindWindowEx(WindowHandle parent, std::u16string_view className,
                            std::u16string_view windowName) override;
  std::int32_t SendMessage(WindowHandle window, std::uint32_t message, std::int32_t wParam,
                           std::int32_t lParam) override;

 private:
  const Workbench& workbench_;
  WindowHandle client_;
};

}  // namespace quorvane::workbench
