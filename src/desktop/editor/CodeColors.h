#pragma once

#include <QColor>

class QPalette;

namespace quorvane::desktop {

/// Colours of code on the background of a palette, light or dark.
struct CodeColors {
  QColor keyword;
  QColor comment;
  QColor text;  ///< string literals
  QColor number;
  QColor directive;
  QColor currentLine;
  QColor lineNumber;
  QColor gutter;
  QColor mark;         ///< behind a marked place
  QColor markOnRuler;  ///< of such a line beside the scroll bar

  static CodeColors Of(const QPalette& palette);
};

}  // namespace quorvane::desktop
