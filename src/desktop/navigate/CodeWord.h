#pragma once

#include <QString>

namespace quorvane::desktop {

/// The name that a place in a line of code stands in or right behind, with what stands before a dot in front of it.
struct CodeWord {
  QString name;         ///< empty: there is none
  QString owner;        ///< the name before the dot; empty for none
  bool dotted = false;  ///< a dot or an exclamation mark stands in front, be it behind something else than a name
  int begin = 0;        ///< 0-based place of the name in the line

  /// `column` is 0-based, in UTF-16 units.
  static CodeWord At(const QString& line, int column);
};

}  // namespace quorvane::desktop
