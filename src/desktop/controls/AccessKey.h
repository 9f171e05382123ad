#pragma once

class QAbstractButton;
class QEvent;

namespace quorvane::desktop {

/// An access key clicks at once, where the toolkit would show the button pressed for a while first: the next key may
/// depend on it. False for any other event.
bool ClickByKey(QAbstractButton& button, const QEvent& event);

}  // namespace quorvane::desktop
