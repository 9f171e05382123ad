#include "desktop/controls/ControlFollow.h"

namespace quorvane::desktop {

namespace {

int following = 0;

}  // namespace

bool IsFollowingControl() {
  return following > 0;
}

void FollowControl(QWidget& widget, const forms::Control& control) {
  ++following;
  const QWidget* parent = widget.parentWidget();
  if (parent == nullptr || widget.isEnabledTo(parent) != control.Enabled()) widget.setEnabled(control.Enabled());
  if (widget.isHidden() == control.Visible()) widget.setVisible(control.Visible());
  --following;
}

}  // namespace quorvane::desktop
