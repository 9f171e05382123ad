#include "desktop/platform/QtWindows.h"

#include <QApplication>
#include <QCursor>
#include <utility>

#include "desktop/platform/QtText.h"
#include "workbench/model/Desk.h"
#include "workbench/model/WindowTable.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

namespace {

/// Above all other programs' windows or not. A window that belongs to another one lies above that in any case, and more
/// would hide message boxes. The toolkit makes the native window anew for this, so that a visible one has to be shown
/// again.
void SetTopmost(QWidget& window, bool topmost) {
  if (window.parentWidget() != nullptr) return;
  if (window.windowFlags().testFlag(Qt::WindowStaysOnTopHint) == topmost) return;
  const bool visible = window.isVisible();
  const QPoint place = window.pos();
  window.setWindowFlag(Qt::WindowStaysOnTopHint, topmost);
  window.move(place);
  if (visible) window.show();
}

}  // namespace

QtWindows::QtWindows(const workbench::Workbench& workbench)
    : workbench_(workbench), table_(std::make_unique<workbench::WindowTable>(workbench)) {}

QtWindows::~QtWindows() = default;

WindowHandle QtWindows::HandleOf(QWidget& widget) {
  std::erase_if(entries_, [](const auto& entry) { return entry.second.widget.isNull(); });
  for (const auto& [handle, entry] : entries_) {
    if (entry.widget == &widget) return handle;
  }
  const WindowHandle handle = workbench_.TheDesk()->NewHandle();
  entries_[handle].widget = &widget;
  return handle;
}

void QtWindows::Bind(WindowHandle handle, QWidget& widget) {
  entries_[handle].widget = &widget;
}

void QtWindows::Answer(QWidget& widget, MessageHandler handler) {
  entries_[HandleOf(widget)].answer = std::move(handler);
}

QWidget* QtWindows::WidgetOf(WindowHandle handle) const {
  const auto found = entries_.find(handle);
  return found != entries_.end() ? found->second.widget.data() : nullptr;
}

bool QtWindows::IsHostWindow(WindowHandle handle) const {
  return handle == table_->GetTopWindow(0) || table_->GetParent(handle) != 0;
}

QWidget* QtWindows::OwnWidget(WindowHandle handle) const {
  return IsHostWindow(handle) ? nullptr : WidgetOf(handle);
}

WindowHandle QtWindows::FindWindow(std::u16string_view className, std::u16string_view windowName) {
  return table_->FindWindow(className, windowName);
}

WindowHandle QtWindows::FindWindowEx(WindowHandle parent, std::u16string_view className,
                                     std::u16string_view windowName) {
  return table_->FindWindowEx(parent, className, windowName);
}

std::int32_t QtWindows::SendMessage(WindowHandle window, std::uint32_t message, std::int32_t wParam,
                                    std::int32_t lParam) {
  const auto found = entries_.find(window);
  if (found != entries_.end() && found->second.widget && found->second.answer) {
    const MessageHandler answer = found->second.answer;  // the entry may go meanwhile
    return answer(message, wParam, lParam);
  }
  const std::int32_t result = table_->SendMessage(window, message, wParam, lParam);
  if (message == kActivateCodeView) BroughtForward.Raise(window);
  return result;
}

void QtWindows::ShowWindow(WindowHandle window, std::int32_t command) {
  QWidget* widget = OwnWidget(window);
  if (widget == nullptr) return table_->ShowWindow(window, command);
  widget->setAttribute(Qt::WA_ShowWithoutActivating, command == kShowNoActivate);
  widget->setVisible(command != kHideWindow);
}

void QtWindows::ShowWindowAsync(WindowHandle window, std::int32_t command) {
  ShowWindow(window, command);
}

void QtWindows::SetWindowPos(WindowHandle window, WindowHandle insertAfter, std::int32_t x, std::int32_t y,
                             std::int32_t width, std::int32_t height, std::uint32_t flags) {
  QWidget* widget = OwnWidget(window);
  if (widget == nullptr) return table_->SetWindowPos(window, insertAfter, x, y, width, height, flags);
  if ((flags & kNoMove) == 0) widget->move(x, y);
  if ((flags & kNoSize) == 0) widget->resize(width, height);
  if (insertAfter == kTopmostWindow || insertAfter == kNotTopmostWindow)
    SetTopmost(*widget, insertAfter == kTopmostWindow);
  if (insertAfter == kTopWindow || insertAfter == kTopmostWindow) widget->raise();
  if (insertAfter == kBottomWindow) widget->lower();
}

WindowHandle QtWindows::GetTopWindow(WindowHandle window) {
  return table_->GetTopWindow(window);
}

WindowHandle QtWindows::GetParent(WindowHandle window) {
  const QWidget* widget = OwnWidget(window);
  if (widget == nullptr) return table_->GetParent(window);
  for (QWidget* above = widget->parentWidget(); above != nullptr; above = above->parentWidget()) {
    for (const auto& [handle, entry] : entries_) {
      if (entry.widget == above) return handle;
    }
  }
  return 0;
}

void QtWindows::SetParent(WindowHandle child, WindowHandle newParent) {
  QWidget* widget = OwnWidget(child);
  QWidget* parent = WidgetOf(newParent);
  if (widget == nullptr || widget == parent || (parent == nullptr && newParent != 0)) return;
  if (widget->parentWidget() == parent) return;
  const bool visible = !widget->isHidden();
  widget->setParent(parent, widget->windowFlags());
  widget->setVisible(visible);
}

WindowHandle QtWindows::GetForegroundWindow() {
  QWidget* active = QApplication::activeWindow();
  return active != nullptr ? HandleOf(*active) : 0;
}

std::u16string QtWindows::GetWindowText(WindowHandle window) {
  const QWidget* widget = OwnWidget(window);
  return widget != nullptr ? FromQString(widget->windowTitle()) : table_->GetWindowText(window);
}

ScreenPoint QtWindows::GetCursorPos() {
  const QPoint place = QCursor::pos();
  return {place.x(), place.y()};
}

std::optional<ScreenRect> QtWindows::GetWindowRect(WindowHandle window) {
  const QWidget* widget = WidgetOf(window);
  if (widget == nullptr) return std::nullopt;
  const QRect place =
      widget->isWindow() ? widget->frameGeometry() : QRect(widget->mapToGlobal(QPoint(0, 0)), widget->size());
  return ScreenRect{place.left(), place.top(), place.left() + place.width(), place.top() + place.height()};
}

}  // namespace quorvane::desktop
