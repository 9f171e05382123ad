#pragma once

class QPoint;
class QScreen;
class QWidget;

namespace quorvane::desktop {

/// The screen that holds a point; between screens the one that holds the window. Never null.
const QScreen& ScreenAt(const QPoint& point, const QWidget& window);

/// Makes a screen that of all forms: they centre over it and end at its edges.
void TellForms(const QScreen& screen, const QWidget& window);

}  // namespace quorvane::desktop
