#include "workbench/WindowTable.h"

#include "base/Text.h"
#include "workbench/Desk.h"
#include "workbench/HostWindow.h"
#include "workbench/Pane.h"
#include "workbench/Workbench.h"

namespace quorvane::workbench {

namespace {

constexpr std::uint32_t kBringViewForward = 0x1043;

}  // namespace

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
  if (window == 0 || message != kBringViewForward) return 0;
  for (const auto& pane : workbench_.TheDesk()->Panes()) {
    if (pane->TheWindow()->Handle() != window) continue;
    pane->Show();
    break;
  }
  return 0;
}

}  // namespace quorvane::workbench
