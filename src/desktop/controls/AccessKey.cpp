#include "desktop/controls/AccessKey.h"

#include <QAbstractButton>
#include <QShortcutEvent>

namespace quorvane::desktop {

bool ClickByKey(QAbstractButton& button, const QEvent& event) {
  if (event.type() != QEvent::Shortcut || static_cast<const QShortcutEvent&>(event).isAmbiguous()) return false;
  button.setFocus(Qt::ShortcutFocusReason);
  button.click();
  return true;
}

}  // namespace quorvane::desktop
