#pragma once

#include <QColor>

class QPalette;

namespace quorvane::desktop {

/// Colours of what went and what came, on the background of a palette, light or dark.
struct ChangeColors {
  QColor removed;      ///< behind a line
  QColor removedPart;  ///< behind what differs in it
  QColor removedText;  ///< of signs and numbers
  QColor added;
  QColor addedPart;
  QColor addedText;

  static ChangeColors Of(const QPalette& palette);
};

}  // namespace quorvane::desktop
