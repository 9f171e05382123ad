#include "desktop/results/ResultRowAccess.h"

#include "desktop/platform/QtText.h"
#include "desktop/results/ResultListView.h"
#include "platform/forms/OwnerDrawList.h"

namespace quorvane::desktop {

ResultRowAccess::ResultRowAccess(ResultListView& view, int row) : alive_(&view), view_(view), row_(row) {}

bool ResultRowAccess::isValid() const {
  return alive_ && row_ < view_.Model().ListCount();
}

QAccessibleInterface* ResultRowAccess::parent() const {
  return alive_ ? QAccessible::queryAccessibleInterface(&view_) : nullptr;
}

QString ResultRowAccess::text(QAccessible::Text text) const {
  return text == QAccessible::Name && isValid() ? ToQString(view_.Model().List(row_)) : QString();
}

QRect ResultRowAccess::rect() const {
  const QRect place = isValid() ? view_.RectOf(row_) : QRect();
  return place.isEmpty() ? QRect() : QRect(view_.viewport()->mapToGlobal(place.topLeft()), place.size());
}

QAccessible::State ResultRowAccess::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state.selectable = state.focusable = true;
  state.selected = view_.Model().ListIndex() == row_;
  state.focused = state.selected && view_.hasFocus();
  state.offscreen = view_.RectOf(row_).isEmpty();
  return state;
}

}  // namespace quorvane::desktop
