#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class QLabel;
class QPlainTextEdit;

namespace quorvane::desktop {

/// Tells whoever writes a stylesheet what is wrong with it: a moment after each edit it is compiled and run on a match
/// made up for that. The line with the fault is marked in the editor, and its reason stands below it; so does what the
/// stylesheet says by xsl:message.
class StylesheetCheck final : public QObject {
 public:
  /// `editor` and `note` outlive this.
  StylesheetCheck(QPlainTextEdit& editor, QLabel& note, QObject* parent);

  /// The fault of the present text, as one sentence with its line; empty when it has none.
  QString Fault();

 private:
  void Check();
  /// `line` is 1-based; none is marked below 1.
  void Mark(int line);

  QPlainTextEdit& editor_;
  QLabel& note_;
  QTimer soon_;
  QString fault_;
};

}  // namespace quorvane::desktop
