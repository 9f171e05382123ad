#include "desktop/dialogs/KeyBox.h"

#include <QKeyEvent>

#include "desktop/platform/QtKeys.h"

namespace quorvane::desktop {

namespace {

bool IsTab(const QKeyEvent& event) {
  const bool plain = !event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier);
  return plain && (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab);
}

}  // namespace

KeyBox::KeyBox(QWidget* parent) : QLineEdit(parent) {
  setReadOnly(true);
  setContextMenuPolicy(Qt::NoContextMenu);
  setAttribute(Qt::WA_InputMethodEnabled, false);
}

bool KeyBox::event(QEvent* event) {
  const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
  if (!key || IsTab(*static_cast<QKeyEvent*>(event))) return QLineEdit::event(event);
  event->accept();
  if (event->type() == QEvent::KeyPress) {
    const auto& pressed = *static_cast<QKeyEvent*>(event);
    const std::int32_t code = VirtualKeyOf(pressed);
    if (code != 0 && !chordtrap::IsModifierKey(code)) Pressed.Raise({code, ShiftStateOf(pressed.modifiers())});
  }
  return true;
}

}  // namespace quorvane::desktop
