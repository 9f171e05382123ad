#pragma once

#include <QString>

class QWidget;

namespace quorvane::desktop {

/// The title of the workbench's boxes.
QString BoxTitle();

/// Says what failed and why, in plain text, until the user has read it.
void TellError(QWidget& parent, const QString& what, const QString& why);

}  // namespace quorvane::desktop
