#pragma once

#include <QWidget>

#include "desktop/platform/QtText.h"
#include "platform/forms/CaptionedControl.h"

namespace quorvane::desktop {

/// Whether a widget can be used and seen, as its model says.
void FollowControl(QWidget& widget, const forms::Control& control);
/// Whether that is going on now: the toolkit then moves the focus off a widget that can no longer have it, and no user
/// has done so.
bool IsFollowingControl();

/// The same of a control with a caption, and its tool tip.
inline void FollowCaptioned(QWidget& widget, const forms::CaptionedControl& control) {
  widget.setToolTip(ToQString(control.ToolTipText()));
  FollowControl(widget, control);
}

}  // namespace quorvane::desktop
