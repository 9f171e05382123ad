#include "workbench/model/WindowTable.h"

#include "base/Text.h"
#include "workbench/model/Desk.h"
#include "workbench/model/HostWindow.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Pane.h"
#include "workbench/model/Workbench.h"

namespace quorvane::workbench {

WindowTable::WindowTable(const Workbench& workbench)
    : workbench_(workbench), client_(workbench.TheDesk()->NewHandle()) {}

WindowHandle WindowTable::FindWindow(std::u16string_view className, std::u16string_view windowName) {
  const HostWindow& main = *workbench_.TheMainWindow();
  const bool found =
      EqualsNoCaseAscii(className, u"wndclass_desked_gsk") && EqualsNoCaseAscii(windowName, main.Caption());
  return found ? main.Handle() : 0;
}

WindowHandle WindowTable::FindWindowEx(WindowHandle parent, std::u16string_view className,
                                       std::u16string_view windowName) {
  if (parent == 0) return FindWindow(className, windowName);
  if (parent == workbench_.TheMainWindow()->Handle()) {
    return EqualsNoCaseAscii(className, u"MDIClient") && windowName.empty() ? client_ : 0;
  }
  if (parent != client_ || !EqualsNoCaseAscii(className, u"VbaWindow")) return 0;
  for (const auto& pane : workbench_.TheDesk()->Panes()) {
    const HostWindow& window = *pane->TheWindow();
    if (EqualsNoCaseAscii(window.Caption(), windowName)) return window.Handle();
  }
  return 0;
}

std::int32_t WindowTable::SendMessage(WindowHandle window, std::uint32_t message, std::int32_t, std::int32_t) {
  if (message != kActivateCodeView) return 0;
  if (const auto pane = PaneOf(window)) pane->Show();
  return 0;
}

void WindowTable::ShowWindow(WindowHandle window, std::int32_t command) {
  if (const auto shown = WindowOf(window)) shown->SetVisible(command != kHideWindow);
}

void WindowTable::SetWindowPos(WindowHandle window, WindowHandle insertAfter, std::int32_t, std::int32_t, std::int32_t,
                               std::int32_t, std::uint32_t flags) {
  if (insertAfter != kTopWindow || (flags & kNoZOrder) != 0) return;
  if (const auto pane = PaneOf(window)) workbench_.TheDesk()->BringForward(*pane);
}

WindowHandle WindowTable::GetTopWindow(WindowHandle window) {
  const WindowHandle main = workbench_.TheMainWindow()->Handle();
  if (window == 0) return main;
  if (window == main) return client_;
  const auto panes = workbench_.TheDesk()->Panes();
  return window == client_ && !panes.empty() ? panes.front()->TheWindow()->Handle() : 0;
}

WindowHandle WindowTable::GetParent(WindowHandle window) {
  const HostWindow& main = *workbench_.TheMainWindow();
  if (window == client_) return main.Handle();
  if (PaneOf(window)) return client_;
  return window != main.Handle() && WindowOf(window) ? main.Handle() : 0;
}

WindowHandle WindowTable::GetForegroundWindow() {
  const HostWindow& main = *workbench_.TheMainWindow();
  return main.Visible() ? main.Handle() : 0;
}

std::u16string WindowTable::GetWindowText(WindowHandle window) {
  const auto found = WindowOf(window);
  return found ? found->Caption() : std::u16string();
}

std::shared_ptr<HostWindow> WindowTable::WindowOf(WindowHandle handle) const {
  if (handle == workbench_.TheMainWindow()->Handle()) return workbench_.TheMainWindow();
  for (const auto& tool : workbench_.TheWindows()->ToolWindows()) {
    if (tool->Handle() == handle) return tool;
  }
  const auto pane = PaneOf(handle);
  return pane ? pane->TheWindow() : nullptr;
}

std::shared_ptr<Pane> WindowTable::PaneOf(WindowHandle handle) const {
  for (const auto& pane : workbench_.TheDesk()->Panes()) {
    if (pane->TheWindow()->Handle() == handle) return pane;
  }
  return nullptr;
}

}  // namespace quorvane::workbench
