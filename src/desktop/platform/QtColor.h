#pragma once

#include <QColor>

#include "platform/Canvas.h"

namespace quorvane::desktop {

/// The same colour, as it is on any ground.
inline QColor ToQColor(Color color) {
  return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                static_cast<int>(color >> 16 & 0xFF));
}

}  // namespace quorvane::desktop
