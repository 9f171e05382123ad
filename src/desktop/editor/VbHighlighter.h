#pragma once

#include <QSyntaxHighlighter>

#include "desktop/editor/CodeColors.h"

namespace quorvane::desktop {

/// Colours of Visual Basic 6 code: keywords, strings, numbers, compiler directives, and comments with their
/// continuations over several lines.
class VbHighlighter : public QSyntaxHighlighter {
 public:
  VbHighlighter(QTextDocument* document, const CodeColors& colors);

  void SetColors(const CodeColors& colors);

 protected:
  void highlightBlock(const QString& text) override;

 private:
  qsizetype TakeWord(const QString& text, qsizetype at, bool& statementBegins);
  void Paint(qsizetype from, qsizetype to, const QColor& color);

  CodeColors colors_;
};

}  // namespace quorvane::desktop
