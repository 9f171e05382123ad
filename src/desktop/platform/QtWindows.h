#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>

#include "base/Event.h"
#include "platform/NativeWindows.h"

namespace quorvane {

namespace workbench {
class Workbench;
class WindowTable;
}  // namespace workbench

namespace desktop {

/// The windows of the desktop by handle. The host's own windows (main window, client area, code windows, tool windows)
/// are those of the workbench's table, and a widget may stand in for any of them; other widgets, such as a dialog or a
/// list inside a tool window, get a handle of their own. Places are screen pixels as the toolkit counts them.
class QtWindows final : public NativeWindows {
 public:
  /// Answers messages to one widget, as SendMessage is told.
  using MessageHandler = std::function<std::int32_t(std::uint32_t message, std::int32_t wParam, std::int32_t lParam)>;

  /// The workbench outlives this.
  explicit QtWindows(const workbench::Workbench& workbench);
  ~QtWindows() override;

  /// The handle of a widget, one for its life; a new one at the first call. It is forgotten with the widget.
  WindowHandle HandleOf(QWidget& widget);
  /// Lets a widget stand for a window of the workbench.
  void Bind(WindowHandle handle, QWidget& widget);
  /// From now on `handler` answers the messages to a widget, for as long as that lives.
  void Answer(QWidget& widget, MessageHandler handler);
  /// A code window was brought to the front, so that its selection is to be seen.
  Event<WindowHandle> BroughtForward;

  /// Null for a handle without a widget.
  QWidget* WidgetOf(WindowHandle handle) const;

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

 private:
  struct Entry {
    QPointer<QWidget> widget;
    MessageHandler answer;
  };

  /// A widget that is no window of the workbench.
  QWidget* OwnWidget(WindowHandle handle) const;
  bool IsHostWindow(WindowHandle handle) const;

  const workbench::Workbench& workbench_;
  std::unique_ptr<workbench::WindowTable> table_;
  std::unordered_map<WindowHandle, Entry> entries_;
};

}  // namespace desktop
}  // namespace quorvane
